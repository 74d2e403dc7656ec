#pragma once

class QCoreApplication;

namespace pryvane::ui {

/// Has the window speak the first language of the user's list that there are translations for, and
/// the toolkit with it. English loads nothing. Once, before the first widget is made.
void speakUsersLanguage(QCoreApplication& application);

/// Whether the window shows another language than English.
[[nodiscard]] bool isTranslated();

} // namespace pryvane::ui
