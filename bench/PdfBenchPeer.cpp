#include "PdfBenchPeer.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

namespace pryvane::bench {

QtSession::QtSession(int& argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    m_application = new QGuiApplication(argc, argv);
}

QtSession::~QtSession()
{
    delete static_cast<QGuiApplication*>(m_application);
}

void writeWithQt(const std::vector<pdf::Page>& pages, const std::string& path)
{
    QPdfWriter writer(QString::fromStdString(path));
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins({});
    writer.setResolution(72);
    QPainter painter(&writer);
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(static_cast<int>(pdf::kSystemSize));
    painter.setFont(font);
    bool first = true;
    for (const pdf::Page& page : pages) {
        if (!first)
            writer.newPage();
        first = false;
        for (const pdf::PageOp& op : page) {
            const auto* text = std::get_if<pdf::TextOp>(&op);
            if (text == nullptr)
                continue;
            const pdf::Rect& at = text->rect;
            painter.drawText(QRectF(at.x, pdf::kPageHeight - at.y - at.height, at.width, at.height),
                             Qt::AlignLeft | Qt::TextWrapAnywhere,
                             QString::fromStdString(text->text));
        }
    }
}

} // namespace pryvane::bench
