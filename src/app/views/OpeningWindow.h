#pragma once

#include "app/views/FramedWindow.h"

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace pryvane {

/// Shows that the names of an image or a list are being read before there is a disk to look at, and
/// asks for the password of an encrypted one.
class OpeningWindow final : public FramedWindow {
    Q_OBJECT

public:
    explicit OpeningWindow(const QString& file);

    /// While names are read; `words` say how far.
    void showProgress(const QString& words);
    /// `isWrong`: another one was given before.
    void askForPassword(bool isWrong);

Q_SIGNALS:
    void passwordGiven(const QString& password);
    void cancelled();

private:
    void give();

    QProgressBar* m_bar;
    QLabel* m_note;
    QLineEdit* m_password;
    QPushButton* m_unlock;
};

} // namespace pryvane
