#include "words/Shown.h"

#include "core/Texts.h"
#include "findings/Verdict.h"
#include "removal/session/RemovalSummary.h"
#include "words/Language.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace pryvane {
namespace {

/// One after the other: a program speaks one language, so English is asked for first.
class Shown : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        qputenv("LANGUAGE", "de");
        qputenv("LC_ALL", "de_DE.UTF-8");
        static int count = 1;
        static char name[] = "words_tests";
        static char* arguments[] = {name, nullptr};
        static QCoreApplication application(count, arguments);
        english = ui::shown("2 weeks ago");
        ui::speakUsersLanguage(application);
    }
    static std::string said(const std::string& text) { return ui::shown(text).toStdString(); }

    static inline QString english;
};

TEST_F(Shown, EnglishIsLeftAloneUntilAnotherLanguageIsSpoken)
{
    EXPECT_EQ(english.toStdString(), "2 weeks ago");
    EXPECT_TRUE(ui::isTranslated());
}

TEST_F(Shown, WhatTheEnginePutsTogetherIsTakenApartAgain)
{
    ScanCoverage coverage;
    coverage.signaturesTested = 1;
    coverage.heldBack = {"/Applications/A.app"};
    coverage.refused = {{"/Users/b", "Permission denied"}, {"/Users/c", "Permission denied"}};
    coverage.homesLeftOut = {"bob"};
    coverage.systemVolumeLeftOut = 1;
    coverage.ended = {ScanEnding::How::Stopped, 40};
    Subject subject;
    subject.users = {"alice"};
    const auto removed = [](RemovalTally tally) { return RemovalCounts{tally, false}.text(); };
    const struct {
        std::string english, german;
    } rows[] = {
        {verdictLine(2, coverage, subject),
         "Gefunden: 2 mögliche Bedrohungen; der Scan wurde angehalten bei 40 %; nicht alles ließ "
         "sich lesen: 2 Orte ließen sich nicht lesen. Außerdem: 1 Anwendung, die die Liste "
         "auslässt, trägt einen bekannten Namen: /Applications/A.app. Nicht angesehen: bob, das "
         "System-Volume (1 Signatur)."},
        {removed({1, 2, 0}), "1 Fund entfernt, 2 fehlgeschlagen."},
        {removed({3, 0, 1}), "3 Funde entfernt, 1 auf Ihren Wunsch geblieben."},
        {sizeText(20'480), "20,5 KB"},
        {sizeText(1), "1 Byte"},
        {stringFromTimeInterval(3661), "1 Stunde 1 Minute 1 Sekunde"},
        {"1 hour ago", "vor 1 Stunde"},
        {"2 weeks ago", "vor 2 Wochen"},
        {"Every Monday at 20:44, next on Monday, 23 November, the last time on 3 May 2027.",
         "Jeden Montag um 20:44, das nächste Mal am Montag, 23. November, zuletzt am 3. Mai 2027."},
        {"next: Tue 24 Nov, 09:00", "nächster Scan: Di, 24. Nov., 09:00"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(said(row.english), row.german) << row.english;
}

TEST_F(Shown, WhatNoTextFitsStaysAsItIs)
{
    for (const std::string text :
         {"/Users/ann/Clean", "x, y; z", "12 locations and a half", "5.5.5 KB", "%1 %n", "1 KB 2",
          "99999999999 weeks ago", "a\xF0\x9F\x8D\x8E"})
        EXPECT_EQ(said(text), text);
}

} // namespace
} // namespace pryvane
