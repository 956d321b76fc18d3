// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string_view>

/// The built-in commands as they stand in keywords.xml. Names and order are an interface:
/// recognition dispatches on the names. Words, blanks and the uneven indentation are kept to the
/// letter.
namespace corvane {

struct BuiltinRule {
    std::string_view name;
    /// The lines between the rule's head and its end, each with a line feed, after one line feed
    /// more.
    std::string_view body;
};

// clang-format off
inline constexpr auto kBuiltinRules = std::to_array<BuiltinRule>({
    {"dictation notepad", R"(
   <O>start</O>
   <P>dictation pad</P>
)"},
    {"dictate", R"(
   <O>start</O>
   <P>dictation</P>
)"},
    {"hide corvane", R"(
   <P>hide corvane</P>
)"},
    {"show corvane", R"(
   <P>show corvane</P>
)"},
    {"copy", R"(
   <P>copy</P>
   <O>selected</O>
   <O>text</O>
)"},
    {"paste", R"(
   <P>paste</P>
   <O>text</O>
)"},
    {"yes", R"(
   <P>yes</P>
)"},
    {"no", R"(
   <P>no</P>
)"},
    {"cancel", R"(
   <P>cancel</P>
)"},
    {"okay", R"(
   <P>okay</P>
)"},
    {"disconnect from net", R"(
   <P>
      <L>
         <P>disconnect</P>
         <P>hang up</P>
         <P>logoff</P>
      </L>
   </P>
   <O>to</O>
   <O>the</O>
   <O>internet</O>
   <O>world wide web</O>
   <O>please</O>
)"},
    {"connect to net", R"(
   <P>
      <L>
         <P>connect</P>
         <P>dial</P>
         <P>go online</P>
      </L>
   </P>
   <O>to</O>
   <O>the</O>
   <O>internet</O>
   <O>world wide web</O>
   <O>please</O>
)"},
    {"how much ram", R"(
   <O>how much</O>
   <P>ram</P>
   <O>
      <L>
         <P>does my computer have</P>
         <P>does my system have</P>
         <P>do i have</P>
         <P>is in my computer</P>
      </L>
   </O>
)"},
    {"shutdown", R"(
   <P>
      <L>
         <P>shutdown</P>
         <P>powerdown</P>
      </L>
   </P>
)"},
    {"reboot", R"(
   <P>
      <L>
         <P>reboot</P>
         <P>restart</P>
      </L>
   </P>
)"},
    {"free space", R"(
   <O>how much</O>
   <P>free space</P>
   <O>do i have</O>
   <O>remaining</O>
   <O>on</O>
   <P>
      <L>
         <P>a</P>
         <P>b</P>
         <P>c</P>
         <P>d</P>
         <P>e</P>
         <P>f</P>
         <P>g</P>
         <P>h</P>
         <P>i</P>
         <P>j</P>
         <P>k</P>
         <P>l</P>
         <P>m</P>
         <P>n</P>
         <P>o</P>
         <P>p</P>
         <P>q</P>
         <P>r</P>
         <P>s</P>
         <P>t</P>
         <P>u</P>
         <P>v</P>
         <P>w</P>
         <P>x</P>
         <P>y</P>
         <P>z</P>
       </L>
   </P>
)"},
    {"normalize", R"(
   <P>normalize</P>
   <O>window</O>
)"},
    {"maximize", R"(
   <P>maximize</P>
   <O>window</O>
)"},
    {"minimize", R"(
   <P>minimize</P>
   <O>window</O>
)"},
    {"add programs", R"(
   <P>
      <L>
         <P>new program</P>
         <P>add program</P>
      </L>
   </P>
)"},
    {"calendar", R"(
   <O>please</O>
   <O>
      <L>
         <P>open</P>
         <P>show</P>
         <P>show me</P>
         <P>display</P>
      </L>
    </O>
    <O>the</O>
    <P>calendar</P>
    <O>please</O>
)"},
    {"the date", R"(
   <O>
      <L>
         <P>tell me the</P>
         <P>what is</P>
         <P>what is the</P>
         <P>whats the</P>
      </L>
   </O>
   <P>
      <L>
         <P>date</P>
         <P>today</P>
      </L>
   </P>
   <O>today</O>
)"},
    {"the time", R"(
   <O>
      <L>
         <P>tell me the</P>
         <P>what is the</P>
         <P>whats the</P>
         <P>what</P>
      </L>
   </O>
   <P>time</P>
   <O>
      <L>
         <P>is it</P>
         <P>now</P>
      </L>
   </O>
)"},
    {"read whiteboard", R"(
   <O>please</O>
   <P>read</P>
   <O>the</O>
   <P>whiteboard</P>
  <O>please</O>
)"},
    {"clean whiteboard", R"(
    <O>please</O>
    <P>
       <L>
          <P>clean</P>
          <P>erase</P>
          <P>clear</P>
       </L>
    </P>
    <O>the</O>
    <P>whiteboard</P>
    <O>please</O>
)"},
    {"read selected", R"(
    <O>please</O>
    <P>read</P>
    <O>the</O>
    <P>selected</P>
    <O>text</O>
)"},
    {"read all", R"(
   <O>please</O>
   <P>read</P>
   <P>all</P>
   <O>the</O>
   <O>text</O>
)"},
    {"you there", R"(
    <O>where</O>
    <P>are you</P>
    <O>there</O>
)"},
    {"close corvane", R"(
    <O>
       <L>
          <P>Please</P>
          <P>Computer</P>
          <P>Will you</P>
       </L>
    </O>
    <P>
       <L>
          <P>close</P>
          <P>exit</P>
          <P>quit</P>
       </L>
    </P>
   <O>k t</O>
   <O>voice</O>
   <P>corvane</P>
   <O>please</O>
)"},
    {"recycle bin", R"(
   <O>please</O>
   <O>empty</O>
   <O>the</O>
   <P>recycle bin</P>
   <O>please</O>
)"},
    {"disable", R"(
   <O>please</O>
   <P>
      <L>
         <P>shut up</P>
         <P>disable</P>
         <P>be quiet</P>
         <P>stop listening</P>
         <P>mute</P>
      </L>
   </P>
   <O>please</O>
)"},
    {"eject", R"(
   <O>please</O>
   <P>
      <L>
         <P>open the</P>
         <P>close the</P>
         <P>eject</P>
      </L>
   </P>
   <O>
      <L>
         <P>c d rom</P>
         <P>c d</P>
         <P>tray</P>
      </L>
   </O>
   <O>please</O>
)"},
    {"close window", R"(
    <O>
       <L>
          <P>Please</P>
          <P>Computer</P>
          <P>Will you</P>
       </L>
    </O>
    <P>close</P>
    <O>
       <L>
          <P>the</P>
          <P>this</P>
       </L>
    </O>
    <O>
       <L>
          <P>window</P>
          <P>program</P>
          <P>application</P>
       </L>
    </O>
    <O>please</O>
)"},
});
// clang-format on

}  // namespace corvane
