#include "browser/views/preview/Exports.h"
#include "core/LoadedModule.h"

#include <QBuffer>
#include <QDialogButtonBox>
#include <QFile>
#include <QPainter>
#include <QPdfDocument>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace {

using pryvane::DocumentPages;
using pryvane::PrintTarget;

class PdfPages final : public DocumentPages {
public:
    explicit PdfPages(const std::string& pdf)
    {
        m_buffer.setData(pdf.data(), static_cast<int>(pdf.size()));
        m_buffer.open(QIODevice::ReadOnly);
        m_document.load(&m_buffer);
    }

    [[nodiscard]] int count() const override
    {
        return m_document.status() == QPdfDocument::Status::Ready ? m_document.pageCount() : 0;
    }
    [[nodiscard]] QSizeF points(int page) const override { return m_document.pagePointSize(page); }
    [[nodiscard]] QImage draw(int page, QSize pixels) override
    {
        // What a page leaves blank is transparent.
        QImage paper(pixels, QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter(&paper).drawImage(0, 0, m_document.render(page, pixels));
        return paper;
    }

private:
    QBuffer m_buffer;
    QPdfDocument m_document; // before its buffer goes
};

/// Whether it ends as a document does. The library loses memory over one that was cut short.
bool isWhole(const std::string& pdf)
{
    return pdf.starts_with("%PDF-") && pdf.find("%%EOF") != std::string::npos;
}

/// The document is made already: what would change its pages is not offered.
void hidePageOptions(const QPrintDialog& dialog)
{
    for (const auto* box : dialog.findChildren<QDialogButtonBox*>())
        for (QAbstractButton* button : box->buttons())
            if (box->buttonRole(button) == QDialogButtonBox::ResetRole)
                button->hide();
    if (auto* properties = dialog.findChild<QPushButton*>(QStringLiteral("properties")))
        properties->hide();
}

std::unique_ptr<DocumentPages> openDocument(const std::string& pdf)
{
    if (!isWhole(pdf))
        return nullptr;
    auto pages = std::make_unique<PdfPages>(pdf);
    if (pages->count() < 1)
        return nullptr;
    return pages;
}

std::optional<PrintTarget> askWhereToPrint(QWidget* over)
{
    QPrinter printer;
    QPrintDialog dialog(&printer, over);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile);
    hidePageOptions(dialog);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    PrintTarget target;
    if (printer.outputFormat() == QPrinter::PdfFormat)
        target.file = QFile::encodeName(printer.outputFileName()).toStdString();
    else
        target.queue = printer.printerName().toStdString();
    return target;
}

} // namespace

PRYVANE_EXPORT_MODULE(pryvane::preview::Exports, openDocument, askWhereToPrint)
