// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/training/words_page.h"

#include <utility>

namespace corvane::linux_desktop {

WordsPage::WordsPage(engine::UserProfile& profile, Means means, const std::string& /*word*/,
                     QWidget* parent)
    : QWidget(parent), profile_(profile), means_(std::move(means)) {}

WordsPage::~WordsPage() = default;

}  // namespace corvane::linux_desktop
