#include "privacy/views/GroupList.h"

#include "core/Escape.h"
#include "ui/Icons.h"
#include "ui/Labels.h"
#include "ui/Theme.h"
#include "words/Shown.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>

namespace pryvane {

namespace {

enum Role : int { SizeText = Qt::UserRole, Share, CanBeTicked };

constexpr int kBar = 4, kIcon = 24, kTickBox = 18, kWidth = 248;
constexpr int kIconLeft = ui::kRelated + 4 + kTickBox + ui::kRelated + 4;

QString iconOf(ToolGroupKind kind)
{
    switch (kind) {
    case ToolGroupKind::Safari:
        return QStringLiteral("browser-safari");
    case ToolGroupKind::Chrome:
        return QStringLiteral("browser-chrome");
    case ToolGroupKind::Firefox:
        return QStringLiteral("browser-firefox");
    case ToolGroupKind::Edge:
    case ToolGroupKind::Brave:
    case ToolGroupKind::Chromium:
    case ToolGroupKind::Vivaldi:
    case ToolGroupKind::Opera:
    case ToolGroupKind::Arc:
        return QStringLiteral("browser");
    case ToolGroupKind::BrowserExtensions:
        return QStringLiteral("extension");
    case ToolGroupKind::System:
        return QStringLiteral("system");
    case ToolGroupKind::Mail:
        return QStringLiteral("mail");
    case ToolGroupKind::Flash:
        return QStringLiteral("flash");
    }
    return {};
}

Qt::CheckState tickState(const ToolGroup& group)
{
    if (group.isChecked)
        return Qt::Checked;
    const bool some = std::any_of(group.List.begin(), group.List.end(),
                                  [](const ToolItem& item) { return item.isChecked; });
    return some ? Qt::PartiallyChecked : Qt::Unchecked;
}

} // namespace

class GroupList::Model final : public QAbstractListModel {
public:
    explicit Model(ToolsViewController& controller) : m_controller(controller) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : m_count;
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (!index.isValid() || index.row() >= known())
            return {};
        const ToolGroup& group = at(index);
        QString name = ui::shown(forScreen(shownName(group)));
        if (group.user != m_controller.availbleApp().front().user ||
            group.user != m_controller.availbleApp().back().user)
            name += QStringLiteral(" (%1)").arg(ui::text(forScreen(group.user)));
        switch (role) {
        case Qt::DisplayRole:
            return name;
        case Qt::AccessibleTextRole:
            return name + QStringLiteral(", ") + ui::shown(group.Size);
        case Qt::DecorationRole:
            return ui::icon(iconOf(group.kind));
        case Qt::CheckStateRole:
            return tickState(group);
        case SizeText:
            return ui::shown(group.Size);
        case Share:
            return double(group.bytes) / double(std::max<std::int64_t>(1, largest()));
        case CanBeTicked:
            return canBeTicked(group);
        default:
            return {};
        }
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const bool ticks = index.isValid() && index.row() < known() && canBeTicked(at(index));
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable |
               (ticks ? Qt::ItemIsUserCheckable : Qt::NoItemFlags);
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole || !(flags(index) & Qt::ItemIsUserCheckable))
            return false;
        m_controller.setGroupChecked(static_cast<std::size_t>(index.row()),
                                     value.toInt() == Qt::Checked);
        Q_EMIT dataChanged(index, index);
        return true;
    }

    void refresh()
    {
        const int count = known();
        if (count < m_count) {
            beginResetModel();
            m_count = count;
            endResetModel();
        } else if (count > m_count) {
            beginInsertRows({}, m_count, count - 1);
            m_count = count;
            endInsertRows();
        }
        if (m_count > 0)
            Q_EMIT dataChanged(index(0), index(m_count - 1));
    }

private:
    [[nodiscard]] int known() const { return static_cast<int>(m_controller.availbleApp().size()); }
    [[nodiscard]] const ToolGroup& at(const QModelIndex& index) const
    {
        return m_controller.availbleApp()[static_cast<std::size_t>(index.row())];
    }
    [[nodiscard]] bool canBeTicked(const ToolGroup& group) const
    {
        return m_controller.canTick() &&
               std::any_of(group.List.begin(), group.List.end(), [](const ToolItem& item) {
                   return item.isChecked || ticksWithOthers(item);
               });
    }
    [[nodiscard]] std::int64_t largest() const
    {
        std::int64_t bytes = 0;
        for (const ToolGroup& group : m_controller.availbleApp())
            bytes = std::max(bytes, group.bytes);
        return bytes;
    }

    ToolsViewController& m_controller;
    int m_count = 0;
};

class GroupList::Delegate final : public QStyledItemDelegate {
public:
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        const QPalette& palette = option.palette;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        if (option.state & QStyle::State_Selected) {
            QColor ground = palette.color(QPalette::Highlight);
            ground.setAlphaF(0.14F);
            painter->setPen(Qt::NoPen);
            painter->setBrush(ground);
            painter->drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 6, 6);
        }
        paintTick(*painter, option, index);
        const bool enabled = index.data(CanBeTicked).toBool();
        const QRect words = wordsRect(option);
        index.data(Qt::DecorationRole).value<QIcon>().paint(painter, iconRect(option));
        const int line = option.fontMetrics.height();
        const QString size = index.data(SizeText).toString();
        const int sizeWidth = option.fontMetrics.horizontalAdvance(size) + ui::kRelated;
        painter->setFont(option.font);
        painter->setPen(enabled ? palette.color(QPalette::Text) : ui::secondaryText(palette));
        const QRect top(words.x(), words.y(), words.width(), line);
        const bool mirrored = option.direction == Qt::RightToLeft;
        painter->drawText(top.adjusted(mirrored ? sizeWidth : 0, 0, mirrored ? 0 : -sizeWidth, 0),
                          Qt::AlignVCenter | Qt::AlignLeading,
                          option.fontMetrics.elidedText(index.data(Qt::DisplayRole).toString(),
                                                        Qt::ElideRight, top.width() - sizeWidth));
        painter->setPen(ui::secondaryText(palette));
        painter->drawText(top, Qt::AlignVCenter | Qt::AlignTrailing,
                          mirrored ? QChar(0x2068) + size + QChar(0x2069) : size);
        paintBar(*painter, QRectF(words.x(), words.bottom() - kBar, words.width(), kBar), palette,
                 index.data(Share).toDouble(), mirrored);
        painter->restore();
        if (option.state & QStyle::State_HasFocus) {
            QStyleOptionFocusRect ring;
            ring.QStyleOption::operator=(option);
            ring.state |= QStyle::State_KeyboardFocusChange;
            option.widget->style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, painter,
                                                  option.widget);
        }
    }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex&) const override
    {
        return {kWidth, option.fontMetrics.height() + kBar + 4 * ui::kRelated - 4};
    }

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override
    {
        const bool byKey = event->type() == QEvent::KeyPress &&
                           static_cast<QKeyEvent*>(event)->key() == Qt::Key_Space;
        const bool byMouse = event->type() == QEvent::MouseButtonRelease &&
                             tickRect(option)
                                 .adjusted(-8, -8, 8, 8)
                                 .contains(static_cast<QMouseEvent*>(event)->position().toPoint());
        if (!byKey && !byMouse)
            return false;
        const bool on = index.data(Qt::CheckStateRole).toInt() != Qt::Checked;
        return model->setData(index, on ? Qt::Checked : Qt::Unchecked, Qt::CheckStateRole);
    }

private:
    static QRect tickRect(const QStyleOptionViewItem& option)
    {
        return QStyle::visualRect(option.direction, option.rect,
                                  {option.rect.x() + ui::kRelated + 4,
                                   option.rect.center().y() - kTickBox / 2 + 1, kTickBox,
                                   kTickBox});
    }

    /// Name, size and bar.
    static QRect wordsRect(const QStyleOptionViewItem& option)
    {
        const int left = kIconLeft + kIcon + ui::kRelated;
        const int height = option.fontMetrics.height() + kBar + 6;
        return QStyle::visualRect(option.direction, option.rect,
                                  {option.rect.x() + left,
                                   option.rect.center().y() - height / 2 + 1,
                                   option.rect.width() - left - ui::kRelated - 4, height});
    }

    static QRect iconRect(const QStyleOptionViewItem& option)
    {
        return QStyle::visualRect(
            option.direction, option.rect,
            {option.rect.x() + kIconLeft, option.rect.center().y() - kIcon / 2 + 1, kIcon, kIcon});
    }

    static void paintTick(QPainter& painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index)
    {
        QStyleOptionViewItem box = option;
        box.rect = tickRect(option);
        box.state.setFlag(QStyle::State_Enabled, index.data(CanBeTicked).toBool());
        const auto ticked = index.data(Qt::CheckStateRole).toInt();
        box.state |= ticked == Qt::Checked            ? QStyle::State_On
                     : ticked == Qt::PartiallyChecked ? QStyle::State_NoChange
                                                      : QStyle::State_Off;
        option.widget->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter,
                                              option.widget);
    }

    static void paintBar(QPainter& painter, QRectF groove, const QPalette& palette, double share,
                         bool mirrored)
    {
        QColor track = palette.color(QPalette::WindowText);
        track.setAlphaF(ui::isHighContrast() ? 0.4F : 0.12F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(track);
        painter.drawRoundedRect(groove, kBar / 2.0, kBar / 2.0);
        if (share <= 0)
            return;
        const double filled = std::max<double>(kBar, groove.width() * share);
        if (mirrored)
            groove.setLeft(groove.right() - filled);
        else
            groove.setWidth(filled);
        painter.setBrush(palette.color(QPalette::Highlight));
        painter.drawRoundedRect(groove, kBar / 2.0, kBar / 2.0);
    }
};

GroupList::GroupList(ToolsViewController& controller, QWidget* parent)
    : QListView(parent), m_controller(controller), m_model(std::make_unique<Model>(controller)),
      m_delegate(std::make_unique<Delegate>())
{
    setObjectName(QStringLiteral("groups"));
    setAccessibleName(tr("Groups"));
    setModel(m_model.get());
    setItemDelegate(m_delegate.get());
    setFrameShape(NoFrame);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setResizeMode(Adjust);
    setSpacing(2);
}

GroupList::~GroupList()
{
    m_refreshing = true; // nobody is left to be told
    setModel(nullptr);
}

QSize GroupList::sizeHint() const
{
    return {kWidth, QListView::sizeHint().height()};
}

void GroupList::refresh()
{
    m_refreshing = true;
    m_model->refresh();
    const auto& groups = m_controller.availbleApp();
    if (!chosen() && !groups.empty()) {
        // While groups still arrive, the one that was chosen may be on its way.
        const auto known =
            std::find_if(groups.begin(), groups.end(),
                         [this](const ToolGroup& each) { return each.kind == m_kind; });
        if (known != groups.end())
            setCurrentIndex(m_model->index(static_cast<int>(known - groups.begin())));
        else if (!m_kind || m_controller.state() != ToolsViewController::State::Scanning)
            setCurrentIndex(m_model->index(0));
    }
    m_refreshing = false;
    if (const auto group = chosen())
        m_kind = groups[*group].kind;
    Q_EMIT chosenChanged();
}

std::optional<std::size_t> GroupList::chosen() const
{
    const QModelIndex index = currentIndex();
    const bool valid = index.isValid() &&
                       static_cast<std::size_t>(index.row()) < m_controller.availbleApp().size();
    return valid ? std::optional(static_cast<std::size_t>(index.row())) : std::nullopt;
}

void GroupList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    if (m_refreshing)
        return;
    if (const auto group = chosen())
        m_kind = m_controller.availbleApp()[*group].kind;
    Q_EMIT chosenChanged();
}

} // namespace pryvane
