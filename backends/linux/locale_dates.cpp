// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/locale_dates.h"

#include <langinfo.h>

#include <QString>
#include <clocale>
#include <cstddef>
#include <cstdlib>
#include <ctime>
#include <utility>

namespace corvane::linux_desktop {
namespace {

/// The locale of the person's environment, in force on this thread for as long as it lives.
class PersonsLocale {
public:
    PersonsLocale() : locale_(newlocale(kCategories, "", nullptr)) {
        if (locale_ == nullptr) locale_ = newlocale(kCategories, "C", nullptr);
        before_ = uselocale(locale_);
    }
    ~PersonsLocale() {
        uselocale(before_);
        freelocale(locale_);
    }
    PersonsLocale(const PersonsLocale&) = delete;
    PersonsLocale& operator=(const PersonsLocale&) = delete;

    [[nodiscard]] QString Name(nl_item item) const {
        // In the locale's own encoding, which need not be UTF-8.
        const char* name = nl_langinfo_l(item, locale_);
        const std::size_t length = std::mbstowcs(nullptr, name, 0);
        if (length == static_cast<std::size_t>(-1)) return {};
        std::wstring wide(length, L'\0');
        std::mbstowcs(wide.data(), name, length);
        return QString::fromStdWString(wide);
    }

private:
    static constexpr int kCategories = LC_TIME_MASK | LC_CTYPE_MASK;

    locale_t locale_;
    locale_t before_;
};

std::string NameOr(const QString& name, const char* otherwise) {
    return name.isEmpty() ? otherwise : name.toStdString();
}

template <std::size_t count>
void Fill(std::array<std::string, count>& names, const PersonsLocale& locale, nl_item first,
          const std::array<const char*, count>& english) {
    for (std::size_t i = 0; i < count; ++i)
        names.at(i) = NameOr(locale.Name(first + static_cast<nl_item>(i)), english.at(i));
}

}  // namespace

DateTime LocalNow() {
    tzset();  // the person may have travelled
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return {.year = local.tm_year + 1900,
            .month = local.tm_mon + 1,
            .day = local.tm_mday,
            .weekday = local.tm_wday + 1,
            .hour = local.tm_hour,
            .minute = local.tm_min};
}

DateNames NamesOfLocale() {
    const PersonsLocale locale;
    DateNames names;
    Fill(names.weekdays, locale, DAY_1,
         {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"});
    Fill(names.short_months, locale, ABMON_1,
         {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"});
    names.am = NameOr(locale.Name(AM_STR).toUpper(), "AM");
    names.pm = NameOr(locale.Name(PM_STR).toUpper(), "PM");
    return names;
}

}  // namespace corvane::linux_desktop
