#include "StoreBenchPeer.h"

#include <QByteArray>
#include <QCborStreamReader>
#include <QCborStreamWriter>
#include <QHash>
#include <QList>
#include <QString>

namespace pryvane::bench {

namespace {

struct QtRecord {
    QString name, infections, url, risk, kind;
    QByteArray path, user;
    qint64 size = 0;
    bool isChecked = false;
};

struct QtReport {
    quint64 count = 0;
    QString reportType, scanDuration, reportId;
    double scanDate = 0;
    QList<QtRecord> records;
    bool isRed = false;
    QByteArray volume;
};

QString qt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QByteArray qtBytes(std::string_view bytes)
{
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

void writeRecord(QCborStreamWriter& out, const QtRecord& record)
{
    out.startMap(9);
    out.append(QLatin1String("name")), out.append(record.name);
    out.append(QLatin1String("isChecked")), out.append(record.isChecked);
    out.append(QLatin1String("infections")), out.append(record.infections);
    out.append(QLatin1String("size")), out.append(record.size);
    out.append(QLatin1String("url")), out.append(record.url);
    out.append(QLatin1String("risk")), out.append(record.risk);
    out.append(QLatin1String("path")), out.append(record.path);
    out.append(QLatin1String("kind")), out.append(record.kind);
    out.append(QLatin1String("user")), out.append(record.user);
    out.endMap();
}

void writeCoverage(QCborStreamWriter& out)
{
    out.startMap(14);
    out.append(QLatin1String("ended")), out.startMap(2);
    out.append(QLatin1String("how")), out.append(QLatin1String("finished"));
    out.append(QLatin1String("percent")), out.append(ScanEnding().percent);
    out.endMap();
    for (const char* key : {"signaturesTested", "systemVolumeLeftOut", "foldersListed",
                            "entriesSearched", "entriesWalked"})
        out.append(QLatin1String(key)), out.append(0);
    out.append(QLatin1String("refused")), out.startArray(0), out.endArray();
    out.append(QLatin1String("heldBack")), out.startArray(0), out.endArray();
    out.append(QLatin1String("missingHome")), out.append(QByteArray());
    for (const char* key : {"homes", "homesLeftOut"})
        out.append(QLatin1String(key)), out.startArray(0), out.endArray();
    out.append(QLatin1String("source")), out.startMap(8);
    out.append(QLatin1String("source")), out.append(QString());
    for (const char* key : {"name", "format"})
        out.append(QLatin1String(key)), out.append(QByteArray());
    for (const char* key : {"entries", "skipped"})
        out.append(QLatin1String(key)), out.append(0);
    out.append(QLatin1String("firstSkipped")), out.startArray(0), out.endArray();
    for (const char* key : {"remark", "sha256"})
        out.append(QLatin1String(key)), out.append(QString());
    out.endMap();
    out.append(QLatin1String("deleted")), out.startArray(0), out.endArray();
    out.append(QLatin1String("seconds")), out.append(0.0);
    out.endMap();
}

void writeSubject(QCborStreamWriter& out)
{
    out.startMap(5);
    out.append(QLatin1String("source")), out.append(QLatin1String(sourceWord({})));
    out.append(QLatin1String("volumeName")), out.append(QByteArray());
    for (const char* key : {"computerName", "systemVersion"})
        out.append(QLatin1String(key)), out.append(QString());
    out.append(QLatin1String("users")), out.startArray(0), out.endArray();
    out.endMap();
}

QString readString(QCborStreamReader& in)
{
    QString text;
    for (auto piece = in.readString(); piece.status == QCborStreamReader::Ok;
         piece = in.readString())
        text += piece.data;
    return text;
}

QByteArray readBytes(QCborStreamReader& in)
{
    QByteArray bytes;
    for (auto piece = in.readByteArray(); piece.status == QCborStreamReader::Ok;
         piece = in.readByteArray())
        bytes += piece.data;
    return bytes;
}

QtRecord readRecord(QCborStreamReader& in)
{
    QtRecord record;
    in.enterContainer();
    while (in.hasNext()) {
        const QString key = readString(in);
        if (key == QLatin1String("name"))
            record.name = readString(in);
        else if (key == QLatin1String("infections"))
            record.infections = readString(in);
        else if (key == QLatin1String("size")) {
            record.size = in.toInteger();
            in.next();
        } else if (key == QLatin1String("url"))
            record.url = readString(in);
        else if (key == QLatin1String("risk"))
            record.risk = readString(in);
        else if (key == QLatin1String("path"))
            record.path = readBytes(in);
        else if (key == QLatin1String("kind"))
            record.kind = readString(in);
        else if (key == QLatin1String("user"))
            record.user = readBytes(in);
        else
            in.next();
    }
    in.leaveContainer();
    return record;
}

QtReport readReport(QCborStreamReader& in)
{
    QtReport report;
    in.enterContainer();
    while (in.hasNext()) {
        const QString key = readString(in);
        if (key == QLatin1String("spyWareCount")) {
            report.count = in.toUnsignedInteger();
            in.next();
        } else if (key == QLatin1String("reportType"))
            report.reportType = readString(in);
        else if (key == QLatin1String("scanDuration"))
            report.scanDuration = readString(in);
        else if (key == QLatin1String("reportId"))
            report.reportId = readString(in);
        else if (key == QLatin1String("scanDate")) {
            in.next(); // the tag
            report.scanDate = in.toDouble();
            in.next();
        } else if (key == QLatin1String("volume"))
            report.volume = readBytes(in);
        else if (key == QLatin1String("spyWareList")) {
            in.enterContainer();
            while (in.hasNext())
                report.records.append(readRecord(in));
            in.leaveContainer();
        } else
            in.next();
    }
    in.leaveContainer();
    return report;
}

} // namespace

struct QtPeer::Lists {
    QList<QtReport> reports;
};

QtPeer::QtPeer(const ReportList& reports) : m_lists(std::make_unique<Lists>())
{
    for (const auto& report : reports) {
        QtReport copy;
        copy.count = report->spyWareCount & 0xff;
        copy.reportType = qt(report->reportType);
        copy.scanDuration = qt(report->scanDuration);
        copy.reportId = qt(report->reportId);
        copy.scanDate = static_cast<double>(report->scanDate.time_since_epoch().count()) / 1000;
        copy.isRed = report->isRed;
        copy.volume = qtBytes(report->volume);
        for (const auto& record : *report->spyWareList)
            copy.records.append({qt(record->name()), qt(record->infections),
                                 qt(record->url.urlText()), qt(record->risk), qt("unknown"),
                                 qtBytes(record->url.relativePath()), qtBytes(record->user),
                                 record->size, record->isChecked});
        m_lists->reports.append(copy);
    }
}

QtPeer::~QtPeer() = default;

std::size_t QtPeer::write(std::string& bytes) const
{
    QByteArray data;
    QCborStreamWriter out(&data);
    out.append(QCborKnownTags::Signature);
    out.startArray(static_cast<quint64>(m_lists->reports.size()));
    for (const QtReport& report : m_lists->reports) {
        out.startMap(10);
        out.append(QLatin1String("spyWareCount")), out.append(report.count);
        out.append(QLatin1String("reportType")), out.append(report.reportType);
        out.append(QLatin1String("scanDate")), out.append(QCborKnownTags::UnixTime_t);
        out.append(report.scanDate);
        out.append(QLatin1String("spyWareList"));
        out.startArray(static_cast<quint64>(report.records.size()));
        for (const QtRecord& record : report.records)
            writeRecord(out, record);
        out.endArray();
        out.append(QLatin1String("scanDuration")), out.append(report.scanDuration);
        out.append(QLatin1String("reportId")), out.append(report.reportId);
        out.append(QLatin1String("isRed")), out.append(report.isRed);
        out.append(QLatin1String("volume")), out.append(report.volume);
        out.append(QLatin1String("subject")), writeSubject(out);
        out.append(QLatin1String("coverage")), writeCoverage(out);
        out.endMap();
    }
    out.endArray();
    bytes.assign(data.constData(), static_cast<std::size_t>(data.size()));
    return bytes.size();
}

std::size_t QtPeer::readAndFollow(const std::string& bytes,
                                  const std::function<bool(const char*)>& exists)
{
    QCborStreamReader in(bytes.data(), static_cast<qsizetype>(bytes.size()));
    if (in.isTag())
        in.next();
    in.enterContainer();
    QList<QtReport> reports;
    while (in.hasNext())
        reports.append(readReport(in));
    in.leaveContainer();

    QHash<QByteArray, bool> known;
    std::size_t existing = 0;
    for (const QtReport& report : reports) {
        for (const QtRecord& record : report.records) {
            auto entry = known.constFind(record.path);
            if (entry == known.constEnd())
                entry = known.insert(record.path, exists(record.path.constData()));
            existing += *entry ? 1 : 0;
        }
    }
    return existing;
}

} // namespace pryvane::bench
