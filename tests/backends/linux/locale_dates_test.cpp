// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/locale_dates.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "temporary_folder.h"

namespace corvane::linux_desktop {
namespace {

/// A variable of the environment, as it was when this ends.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        setenv(name, value, 1);
    }
    ~Variable() {
        if (before_)
            setenv(name_, before_->c_str(), 1);
        else
            unsetenv(name_);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

TEST(LocaleDates, TheNamesOfThePlainLocaleAreEnglish) {
    const Variable locale("LC_ALL", "C.UTF-8");
    const DateNames names = NamesOfLocale();
    EXPECT_EQ(names.weekdays.front(), "Sunday");
    EXPECT_EQ(names.weekdays.back(), "Saturday");
    EXPECT_EQ(names.short_months.front(), "Jan");
    EXPECT_EQ(names.short_months.back(), "Dec");
    EXPECT_EQ(names.am, "AM");
    EXPECT_EQ(names.pm, "PM");
}

TEST(LocaleDates, ALocaleThatIsNotInstalledLeavesEnglishNames) {
    const Variable locale("LC_ALL", "xx_XX.UTF-8");
    EXPECT_EQ(NamesOfLocale().weekdays.at(1), "Monday");
}

/// Makes a locale out of its source, in a folder of the test's own.
void Install(const TemporaryFolder& folder, const std::string& language,
             const std::string& charset) {
    const std::string command = "localedef -i " + language + " -f " + charset + " '" +
                                (folder / (language + "." + charset)).string() + "' 2>/dev/null";
    // Its status is 1 for mere warnings as well.
    EXPECT_LE(WEXITSTATUS(std::system(command.c_str())), 1) << command;
}

TEST(LocaleDates, NamesComeFromTheLocaleInWhateverEncodingItHas) {
    const TemporaryFolder folder;
    Install(folder, "de_DE", "ISO-8859-1");
    const Variable place("LOCPATH", folder.path().c_str());
    const Variable locale("LC_ALL", "de_DE.ISO-8859-1");
    const DateNames names = NamesOfLocale();
    EXPECT_EQ(names.weekdays.at(2), "Dienstag");
    EXPECT_EQ(names.short_months.at(2), "Mär");
    // Germans do not halve their days.
    EXPECT_EQ(names.am, "AM");
    EXPECT_EQ(names.pm, "PM");
}

TEST(LocaleDates, HalvesOfTheDayAreInCapitals) {
    const TemporaryFolder folder;
    Install(folder, "en_GB", "UTF-8");
    const Variable place("LOCPATH", folder.path().c_str());
    const Variable locale("LC_ALL", "en_GB.UTF-8");
    const DateNames names = NamesOfLocale();
    EXPECT_EQ(names.am, "AM");
    EXPECT_EQ(names.pm, "PM");
    EXPECT_EQ(names.short_months.at(8), "Sep");
}

TEST(LocaleDates, TheMomentIsThatOfTheTimeZone) {
    const auto hours_in = [](const char* zone) {
        const Variable variable("TZ", zone);
        const DateTime now = LocalNow();
        return now.day * 24 + now.hour;
    };
    // Half a day apart, on the same clock; not compared where a month begins in between.
    const int ahead = hours_in("EAST-12");
    const int behind = hours_in("WEST0");
    if (ahead > behind) {
        EXPECT_NEAR(ahead - behind, 12, 1);
    }
    tzset();
}

TEST(LocaleDates, TheMomentIsACalendarsDay) {
    const Variable variable("TZ", "UTC0");
    const std::time_t before = std::time(nullptr);
    const DateTime now = LocalNow();
    const std::time_t after = std::time(nullptr);
    std::tm clock{};
    clock.tm_year = now.year - 1900;
    clock.tm_mon = now.month - 1;
    clock.tm_mday = now.day;
    clock.tm_hour = now.hour;
    clock.tm_min = now.minute;
    const std::time_t minute = timegm(&clock);
    EXPECT_LE(minute, after);
    EXPECT_GT(minute, before - 60);
    EXPECT_EQ(now.weekday, clock.tm_wday + 1);
}

}  // namespace
}  // namespace corvane::linux_desktop
