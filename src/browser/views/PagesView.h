#pragma once

#include "browser/views/PreviewModule.h"

#include <QAbstractScrollArea>

#include <deque>
#include <vector>

namespace pryvane {

/// A document's pages below each other, as wide as there is room. Pages are drawn when they are
/// seen; the keyboard scrolls.
class PagesView final : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit PagesView(QWidget* parent = nullptr);

    void setPages(std::unique_ptr<DocumentPages> pages);
    [[nodiscard]] int count() const { return m_pages ? m_pages->count() : 0; }
    /// The page in the middle of what is seen, from 1.
    [[nodiscard]] int currentPage() const;
    [[nodiscard]] QSize sizeHint() const override { return {760, 2000}; }

Q_SIGNALS:
    void currentPageChanged();

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    struct Drawn {
        int page;
        QImage picture;
    };

    void layOut();
    void tellPage();
    [[nodiscard]] QRect place(int page) const;
    [[nodiscard]] const QImage& picture(int page, QSize pixels);

    std::unique_ptr<DocumentPages> m_pages;
    std::vector<QRect> m_places; ///< from the top of the first page
    std::deque<Drawn> m_drawn;   ///< the latest ones
};

} // namespace pryvane
