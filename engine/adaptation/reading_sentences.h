// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace corvane::engine {

/// What is read aloud to train a voice: everyday words that hold every sound of English, most of
/// them several times and beside different others.
inline constexpr std::string_view kReadingSentences[]{
    "The yellow boat slowly turned towards the harbour wall.",
    "Please bring a thick blanket and five warm pillows.",
    "Joyce could hear the church bells ring at noon.",
    "A young girl found three shiny pennies under the chair.",
    "We usually measure the garden before the spring.",
    "Which of these large boxes should I push outside?",
    "My uncle enjoys good coffee after a long walk.",
    "The thunder shook every window of the old house.",
    "You may choose between a red jacket and a blue one.",
    "He threw the heavy ball over the fence with both hands.",
    "The judge asked the witness about the strange noise.",
    "Fresh bread and cheese make a very simple meal.",
    "Our teacher wrote the answer on a piece of paper.",
    "They plan to visit the museum on Thursday morning.",
    "A cold wind blew across the empty beach all night.",
    "Put the broken glass into that square box, please.",
    "She heard the voice of her father from far away.",
    "The quick horse jumped across the narrow stream.",
    "It was a pleasure to watch the children play outdoors.",
    "Nobody knew how the fire in the kitchen had begun."};

}  // namespace corvane::engine
