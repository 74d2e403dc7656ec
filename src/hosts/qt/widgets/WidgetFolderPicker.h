#pragma once

#include "platform/FolderAccess.h"

#include <QFileDialog>

#include <string>

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

/// An open panel for folders of the volume whose root is a folder of this host. Folders that may
/// not be chosen are shown greyed and are not accepted, typed or clicked. Names that are no valid
/// text cannot be chosen.
class WidgetFolderPicker final : public FolderPicker {
public:
    /// The volume's host folder, absolute and without links on the way.
    explicit WidgetFolderPicker(std::string volumeFolder);

    [[nodiscard]] std::optional<FileURL> pickFolder(const FolderQuestion& question) override;

private:
    std::string m_volumeFolder; ///< empty for "/"
};

/// An open panel for one file of this host; its absolute path as raw bytes, or none when the user
/// cancelled. Names that are no valid text cannot be chosen.
[[nodiscard]] std::optional<std::string>
pickHostFile(const std::string& prompt, const std::string& message, const std::string& from);

} // namespace pryvane
