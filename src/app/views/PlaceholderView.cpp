#include "app/views/PlaceholderView.h"

#include "ui/Surfaces.h"

#include <QVBoxLayout>

namespace pryvane {

PlaceholderView::PlaceholderView(const QString& iconName, const QString& sentence, QWidget* parent)
    : QWidget(parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(ui::kEdge, ui::kEdge, ui::kEdge, ui::kEdge);
    column->addWidget(new ui::EmptyState(iconName, sentence));
}

} // namespace pryvane
