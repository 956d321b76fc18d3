// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/form4.h"

#include <gtest/gtest.h>

#include "simulated/simulated_desktop.h"

namespace corvane {
namespace {

class Form4Test : public ::testing::Test {
protected:
    [[nodiscard]] const simulated::ShownWindow& Shown() const {
        return desktop.windows.Window("Form4");
    }

    simulated::SimulatedDesktop desktop;
    MessageLoop loop{desktop.queue, desktop.runtime};
    forms::Lazy<Form4> form4{[this] { return std::make_shared<Form4>(desktop.windows, loop); }};
};

TEST_F(Form4Test, StandsWhiteInTheMiddleOfTheScreen) {
    form4->Show();
    const WindowDescription& window = Shown().description;
    EXPECT_EQ(window.caption, "About KT Corvane 3.0");
    EXPECT_EQ(window.client_width, 5430);
    EXPECT_EQ(window.client_height, 3195);
    EXPECT_EQ(window.position, StartPosition::CentreOfScreen);
    EXPECT_TRUE(window.white_background);
    EXPECT_EQ(Shown().border, BorderStyle::FixedSingle);
}

TEST_F(Form4Test, ControlsStandWhereTheyBelong) {
    form4->Show();
    const std::pair<const char*, TwipsRect> places[] = {{"Image1", {15, 15, 3000, 3135}},
                                                        {"Label1", {3405, 450, 1890, 2490}},
                                                        {"Command1", {4200, 2790, 1185, 360}}};
    for (const auto& [name, place] : places) EXPECT_EQ(form4->Describe(name).place, place) << name;
    EXPECT_EQ(form4->Describe("Command1").text, "&Ok");
    EXPECT_EQ(form4->Describe("Command1").tab_index, 0);
}

TEST_F(Form4Test, LoadingFillsTheTitleAndClearsTheCount) {
    EXPECT_EQ(form4->SplashTicks, 0);
    EXPECT_EQ(Shown().captions.at("Label1"), "KT Corvane 3.0");
}

TEST_F(Form4Test, ItsTimerIsOffAtFirst) {
    EXPECT_FALSE(form4->Timer1.Enabled());
    EXPECT_EQ(form4->Timer1.Interval(), std::chrono::milliseconds(1));
}

TEST_F(Form4Test, TheButtonHidesAndDoesNotUnload) {
    int unloads = 0;
    form4->Unload = [&] { ++unloads; };
    form4->Show();
    desktop.windows.Click("Form4", "Command1");
    EXPECT_FALSE(Shown().visible);
    EXPECT_TRUE(form4.Loaded());
    EXPECT_EQ(unloads, 0);
}

}  // namespace
}  // namespace corvane
