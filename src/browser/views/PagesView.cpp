#include "browser/views/PagesView.h"

#include "ui/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace pryvane {

namespace {

constexpr std::size_t kPagesKept = 4; // some 12 MB each on a dense screen
constexpr int kLine = 48;

} // namespace

PagesView::PagesView(QWidget* parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setAccessibleName(tr("The pages as they will be printed"));
}

void PagesView::setPages(std::unique_ptr<DocumentPages> pages)
{
    m_pages = std::move(pages);
    m_drawn.clear();
    layOut();
    tellPage();
}

void PagesView::layOut()
{
    m_places.clear();
    const int width = viewport()->width() - 2 * ui::kRelated;
    int top = ui::kRelated;
    for (int page = 0; page < count(); ++page) {
        const QSizeF points = m_pages->points(page);
        const int height = qRound(width * points.height() / std::max(1.0, points.width()));
        m_places.emplace_back(ui::kRelated, top, width, height);
        top += height + ui::kRelated;
    }
    verticalScrollBar()->setRange(0, std::max(0, top - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(kLine);
    viewport()->update();
}

QRect PagesView::place(int page) const
{
    return m_places[static_cast<std::size_t>(page)].translated(0, -verticalScrollBar()->value());
}

int PagesView::currentPage() const
{
    const int middle = viewport()->height() / 2;
    int page = 0;
    while (page + 1 < count() && place(page + 1).top() <= middle)
        ++page;
    return page + 1;
}

const QImage& PagesView::picture(int page, QSize pixels)
{
    const auto known = std::ranges::find_if(m_drawn, [&](const Drawn& drawn) {
        return drawn.page == page && drawn.picture.size() == pixels;
    });
    if (known != m_drawn.end())
        return known->picture;
    m_drawn.push_front({page, m_pages->draw(page, pixels)});
    if (m_drawn.size() > kPagesKept)
        m_drawn.pop_back();
    return m_drawn.front().picture;
}

void PagesView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    for (int page = 0; page < count(); ++page) {
        const QRect paper = place(page);
        if (!paper.intersects(event->rect()))
            continue;
        const QSize pixels = (QSizeF(paper.size()) * devicePixelRatioF()).toSize();
        painter.drawImage(paper, picture(page, pixels));
        painter.setPen(ui::hairline(palette()));
        painter.drawRect(paper.adjusted(0, 0, -1, -1));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(viewport()->rect().adjusted(1, 1, -1, -1));
    }
}

void PagesView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
    tellPage();
}

void PagesView::keyPressEvent(QKeyEvent* event)
{
    QScrollBar* bar = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_Home:
        return bar->setValue(0);
    case Qt::Key_End:
        return bar->setValue(bar->maximum());
    case Qt::Key_Space:
        return bar->triggerAction((event->modifiers() & Qt::ShiftModifier)
                                      ? QScrollBar::SliderPageStepSub
                                      : QScrollBar::SliderPageStepAdd);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void PagesView::scrollContentsBy(int, int)
{
    viewport()->update();
    tellPage();
}

void PagesView::tellPage()
{
    if (count() == 0)
        return;
    setAccessibleDescription(tr("Page %1 of %2").arg(currentPage()).arg(count()));
    Q_EMIT currentPageChanged();
}

} // namespace pryvane
