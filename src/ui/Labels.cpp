#include "ui/Labels.h"

#include "core/Escape.h"
#include "ui/RowPainting.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QPainter>
#include <QStyle>

#include <map>

namespace pryvane::ui {

QString text(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString buttonText(std::string_view utf8)
{
    return text(utf8).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

void copyPath(std::string_view path)
{
    QGuiApplication::clipboard()->setText(isUtf8(path) ? text(path) : text(forScreen(path)));
}

namespace {

/// A label that remembers how high it is at which width: layouts ask for that some twenty times
/// before a window is first seen, and QLabel breaks its text into lines for each answer.
class Label : public QLabel {
public:
    using QLabel::QLabel;

    [[nodiscard]] int heightForWidth(int width) const override
    {
        if (m_text != text() || m_wraps != wordWrap()) {
            m_text = text();
            m_wraps = wordWrap();
            m_heights.clear();
        }
        const auto known = m_heights.find(width);
        if (known != m_heights.end())
            return known->second;
        if (m_heights.size() >= kRemembered)
            m_heights.clear();
        return m_heights[width] = QLabel::heightForWidth(width);
    }

protected:
    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::FontChange:
        case QEvent::StyleChange:
        case QEvent::ContentsRectChange:
        case QEvent::ScreenChangeInternal:
            m_heights.clear();
            break;
        default:
            break;
        }
        return QLabel::event(event);
    }

private:
    static constexpr std::size_t kRemembered = 32;

    mutable QString m_text;
    mutable bool m_wraps = false;
    mutable std::map<int, int> m_heights; ///< by width
};

} // namespace

QLabel* makeLabel(TextRole role, const QString& content, QWidget* parent)
{
    auto* label = new Label(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(content);
    setTextRole(*label, role);
    return label;
}

namespace {

/// Keeps its colour right when the palette changes.
class Note final : public Label {
public:
    using Label::Label;

protected:
    void changeEvent(QEvent* event) override
    {
        Label::changeEvent(event);
        if (event->type() == QEvent::ApplicationPaletteChange)
            tint();
    }
    void showEvent(QShowEvent* event) override
    {
        tint();
        Label::showEvent(event);
    }

private:
    void tint()
    {
        QPalette own = palette();
        const QColor color = secondaryText(own);
        if (own.color(QPalette::Active, QPalette::WindowText) == color)
            return;
        own.setColor(QPalette::WindowText, color);
        setPalette(own);
    }
};

} // namespace

QLabel* makeNote(const QString& content, QWidget* parent)
{
    auto* label = new Note(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(content);
    label->setWordWrap(true);
    setTextRole(*label, TextRole::Small);
    return label;
}

ElidedLabel::ElidedLabel(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ElidedLabel::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    setAccessibleName(text);
    setToolTip(text.isEmpty()
                   ? QString()
                   : QStringLiteral("<qt>") + text.toHtmlEscaped() + QStringLiteral("</qt>"));
    update();
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_text), fontMetrics().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 12, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString fitting = fontMetrics().elidedText(m_text, Qt::ElideMiddle, width());
    style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          palette(), isEnabled(), isolated(fitting, layoutDirection()),
                          foregroundRole());
}

} // namespace pryvane::ui
