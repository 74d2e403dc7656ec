#pragma once

#include "ui/Sheet.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace pryvane {

namespace ui {
class ElidedLabel;
}

/// Asks for the folder that stands for a Mac's root, and whose account on it to look at.
class VolumeSheet final : public ui::Sheet {
    Q_OBJECT

public:
    /// All paths and names are raw bytes.
    struct Asks {
        std::function<std::optional<std::string>(const std::string& from)> pickFolder;
        /// The short names of the accounts on that volume, or why it cannot be looked at.
        std::function<std::optional<std::string>(const std::string& folder,
                                                 std::vector<std::string>& users)>
            users;
        std::function<void(const std::string& folder, const std::string& user)> open;
    };

    VolumeSheet(QWidget* over, Asks asks, std::string folder, std::string user);
    void present();

private:
    void chooseFolder();
    void look();
    void accept();
    [[nodiscard]] std::string chosenUser() const;

    const Asks m_asks;
    std::string m_folder;
    std::string m_user;
    std::vector<std::string> m_users;
    ui::ElidedLabel* m_place;
    QPushButton* m_choose;
    QComboBox* m_account;
    QLabel* m_note;
    QPushButton* m_open;
};

} // namespace pryvane
