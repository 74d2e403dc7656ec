#include "hosts/qt/widgets/WidgetFolderPicker.h"

#include "core/Escape.h"
#include "hosts/qt/Text.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QGridLayout>
#include <QIdentityProxyModel>
#include <QLabel>

namespace pryvane {

namespace {

/// Greys the folders that may not be chosen.
class AllowedFolders final : public QIdentityProxyModel {
public:
    explicit AllowedFolders(FolderPanel* panel) : QIdentityProxyModel(panel), m_panel(panel) {}

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const QString path = index.data(QFileSystemModel::FilePathRole).toString();
        const Qt::ItemFlags flags = QIdentityProxyModel::flags(index);
        return path.isEmpty() || m_panel->allows(path) ? flags : flags & ~Qt::ItemIsEnabled;
    }

private:
    FolderPanel* m_panel;
};

/// The folder itself, or the nearest one around it that there is.
QString nearestFolder(QString folder)
{
    while (!QFileInfo(folder).isDir() && folder.size() > 1)
        folder.truncate(std::max<qsizetype>(1, folder.lastIndexOf(QLatin1Char('/'))));
    return folder;
}

QLabel* plainLabel(const QString& text)
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setText(text);
    return label;
}

} // namespace

FolderPanel::FolderPanel(const FolderQuestion& question, std::string volumeFolder, QWidget* parent)
    : QFileDialog(parent), m_question(question), m_volumeFolder(std::move(volumeFolder))
{
    setObjectName(QStringLiteral("folderPanel"));
    setOptions(DontUseNativeDialog | ShowDirsOnly | ReadOnly);
    setFileMode(Directory);
    setWindowTitle(qt::text(question.prompt));
    setLabelText(Accept, qt::buttonText(question.prompt));
    setProxyModel(new AllowedFolders(this));
    addMessage(question.message);
    QString folder = QFile::decodeName(
        QByteArray::fromStdString(m_volumeFolder + question.directory.absolutePath()));
    setDirectory(nearestFolder(folder));
}

void FolderPanel::addMessage(const std::string& message)
{
    m_refusal = plainLabel({});
    m_refusal->setObjectName(QStringLiteral("refusal"));
    if (auto* grid = qobject_cast<QGridLayout*>(layout())) {
        grid->addWidget(plainLabel(qt::text(message)), grid->rowCount(), 0, 1, -1);
        grid->addWidget(m_refusal, grid->rowCount(), 0, 1, -1);
    }
}

std::optional<FileURL> FolderPanel::onVolume(const QString& hostPath) const
{
    const std::string path = QFile::encodeName(hostPath).toStdString();
    if (path == m_volumeFolder)
        return FileURL::fileURLWithPath("/");
    if (!path.starts_with(m_volumeFolder + "/"))
        return std::nullopt;
    return FileURL::fileURLWithPath(std::string_view(path).substr(m_volumeFolder.size()));
}

bool FolderPanel::allows(const QString& hostPath) const
{
    const auto url = onVolume(hostPath);
    return url && (!m_question.allows || m_question.allows(*url));
}

void FolderPanel::accept()
{
    const QStringList selected = selectedFiles();
    const QString path = selected.isEmpty() ? QString() : selected.front();
    if (!allows(path) || !QFileInfo(path).isDir()) {
        const std::string shown = forScreen(QFile::encodeName(path).toStdString());
        m_refusal->setText(
            qt::text("\"" + shown + "\" cannot be chosen here. " + m_question.advice));
        return;
    }
    m_chosen = onVolume(path);
    done(Accepted);
}

WidgetFolderPicker::WidgetFolderPicker(std::string volumeFolder)
    : m_volumeFolder(std::move(volumeFolder))
{
    while (m_volumeFolder.ends_with('/'))
        m_volumeFolder.pop_back();
}

std::optional<FileURL> WidgetFolderPicker::pickFolder(const FolderQuestion& question)
{
    FolderPanel panel(question, m_volumeFolder, QApplication::activeWindow());
    panel.exec();
    return panel.chosen();
}

std::optional<std::string> pickHostFile(const std::string& prompt, const std::string& message,
                                        const std::string& from)
{
    QFileDialog panel(QApplication::activeWindow());
    panel.setObjectName(QStringLiteral("filePanel"));
    panel.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::ReadOnly);
    panel.setFileMode(QFileDialog::ExistingFile);
    panel.setWindowTitle(qt::text(message));
    panel.setLabelText(QFileDialog::Accept, qt::buttonText(prompt));
    const QFileInfo begin(QFile::decodeName(QByteArray::fromStdString(from)));
    panel.setDirectory(begin.isDir() ? begin.filePath() : begin.path());
    if (panel.exec() != QDialog::Accepted || panel.selectedFiles().isEmpty())
        return std::nullopt;
    return QFile::encodeName(panel.selectedFiles().front()).toStdString();
}

} // namespace pryvane
