#pragma once

#include "privacy/ToolsViewController.h"

#include <QListView>

#include <optional>

namespace pryvane {

/// The groups: tick box, icon, name, size, and a bar that compares the sizes. Space ticks.
class GroupList final : public QListView {
    Q_OBJECT

public:
    explicit GroupList(ToolsViewController& controller, QWidget* parent = nullptr);
    ~GroupList() override;

    /// Groups, sizes or ticks may have changed. The chosen kind of group stays chosen.
    void refresh();
    [[nodiscard]] std::optional<std::size_t> chosen() const;

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void chosenChanged();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    class Model;
    class Delegate;

    ToolsViewController& m_controller;
    std::unique_ptr<Model> m_model;
    std::unique_ptr<Delegate> m_delegate;
    std::optional<ToolGroupKind> m_kind;
    bool m_refreshing = false;
};

} // namespace pryvane
