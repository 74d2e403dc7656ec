#pragma once

#include "platform/FolderPicker.h"

#include <QFileDialog>

class QLabel;

namespace pryvane {

/// The panel of WidgetFolderPicker.
class FolderPanel final : public QFileDialog {
    Q_OBJECT

public:
    FolderPanel(const FolderQuestion& question, std::string volumeFolder, QWidget* parent);

    void accept() override;

    [[nodiscard]] const std::optional<FileURL>& chosen() const { return m_chosen; }

    /// The place on the volume of a host path as Qt spells it; none outside the volume.
    [[nodiscard]] std::optional<FileURL> onVolume(const QString& hostPath) const;
    [[nodiscard]] bool allows(const QString& hostPath) const;

private:
    void addMessage(const std::string& message);

    const FolderQuestion& m_question;
    const std::string m_volumeFolder;
    QLabel* m_refusal = nullptr;
    std::optional<FileURL> m_chosen;
};

} // namespace pryvane
