#pragma once

#include "ui/Sheet.h"

#include <QTimer>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace pryvane {

namespace ui {
class ElidedLabel;
}

/// Asks for what stands for a Mac's disk, a folder or a file, and whose account on it to look at.
class VolumeSheet final : public ui::Sheet {
    Q_OBJECT

public:
    /// What there is at a place. Names are raw bytes.
    struct Looked {
        std::vector<std::string> users;     ///< the short names of the accounts
        std::optional<std::string> refusal; ///< why it cannot be looked at
        bool isLocked = false;              ///< for want of the right password
    };
    using Told = std::function<void(const Looked& looked)>;

    /// All paths and names are raw bytes.
    struct Asks {
        std::function<std::optional<std::string>(const std::string& from)> pickFolder;
        std::function<std::optional<std::string>(const std::string& from)> pickFile;
        /// Calls back at once, or after a while in which progress() has words.
        std::function<void(const std::string& place, const std::string& password, Told told)> look;
        std::function<QString()> progress;
        std::function<void()> stop; ///< the looking
        std::function<void(const std::string& place, const std::string& user,
                           const std::string& password)>
            open;
    };

    VolumeSheet(QWidget* over, Asks asks, std::string place, std::string user);
    void present();

private:
    void choose(const std::function<std::optional<std::string>(const std::string&)>& pick);
    void look();
    void showLooked(const Looked& looked);
    void showProgress();
    void accept();
    [[nodiscard]] std::string chosenUser() const;

    const Asks m_asks;
    std::string m_folder; ///< or file
    std::string m_user;
    std::vector<std::string> m_users;
    bool m_isLooking = false;
    ui::ElidedLabel* m_place;
    QPushButton* m_choose;
    QPushButton* m_chooseFile;
    QComboBox* m_account;
    QLabel* m_passwordLabel;
    QLineEdit* m_password;
    QPushButton* m_unlock;
    QProgressBar* m_bar;
    QLabel* m_note;
    QPushButton* m_open;
    QTimer m_progress;
};

} // namespace pryvane
