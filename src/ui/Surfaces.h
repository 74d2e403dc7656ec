#pragma once

#include "ui/Theme.h"

#include <QFrame>
#include <QLabel>

class QCheckBox;
class QHBoxLayout;
class QVBoxLayout;

namespace pryvane::ui {

/// A white (or dark) card with a hairline and round corners, holding one group of things.
class Card : public QFrame {
    Q_OBJECT

public:
    explicit Card(QWidget* parent = nullptr);
    [[nodiscard]] QVBoxLayout* column() const { return m_column; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QVBoxLayout* m_column;
};

/// The panel with the one statement of a screen: artwork behind, a badge, white words.
class ColouredView final : public QWidget {
    Q_OBJECT

public:
    explicit ColouredView(QWidget* parent = nullptr);

    /// Names of the artwork and of the badge's icon; empty for the calm background and no badge.
    void setArtwork(const QString& background, const QString& badge);
    void setStatement(const QString& statement, const QString& detail = {});
    [[nodiscard]] QString statement() const { return m_statement->text(); }

    /// Where a screen puts its action, at the right end.
    [[nodiscard]] QHBoxLayout* actions() const { return m_actions; }

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    bool event(QEvent*) override;

private:
    void fitStatement();

    QString m_background = QStringLiteral("idle_bg");
    QPixmap m_drawn;
    QLabel* m_badge;
    QLabel* m_statement;
    QLabel* m_detail;
    QHBoxLayout* m_actions;
};

/// A switch with its name and one line of explanation.
class SwitchRow final : public QWidget {
    Q_OBJECT

public:
    SwitchRow(const QString& name, const QString& explanation, QWidget* parent = nullptr);
    [[nodiscard]] QCheckBox* box() const { return m_box; }
    void setExplanation(const QString& explanation);

private:
    QCheckBox* m_box;
    QLabel* m_explanation;
};

/// One line about what was just done. What failed has an icon and is no grey aside.
class Notice final : public QWidget {
    Q_OBJECT

public:
    /// The name is that of its words.
    explicit Notice(const QString& name, QWidget* parent = nullptr);

    /// Hidden while there are no words.
    void tell(const QString& words, bool failed);

private:
    QLabel* m_icon;
    QLabel* m_words;
};

/// What a screen shows when it has nothing to list: an icon, a sentence, and room for one button.
class EmptyState final : public QWidget {
    Q_OBJECT

public:
    EmptyState(const QString& iconName, const QString& sentence, QWidget* parent = nullptr);
    void setSentence(const QString& sentence);
    void setAction(QWidget* button);

protected:
    void changeEvent(QEvent*) override;

private:
    void drawIcon();

    QString m_iconName;
    QLabel* m_icon;
    QLabel* m_sentence;
    QVBoxLayout* m_column;
};

} // namespace pryvane::ui
