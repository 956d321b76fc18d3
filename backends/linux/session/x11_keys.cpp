// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "linux/session/x11_keys.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>

namespace corvane::linux_desktop {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPatience{1000};
constexpr milliseconds kPatienceForAStroke{10};
constexpr milliseconds kPatienceWithTheClipboard{500};
constexpr milliseconds kPatienceWithTheManager{500};
constexpr milliseconds kPatienceForAFetch{900};
constexpr milliseconds kPatienceForAnAnswer{100};
constexpr milliseconds kPatienceForTheTarget{300};  // when another program has fetched

// Far fewer keys than a program's connection holds, so that none waits in front of others.
constexpr std::size_t kChunk = 25;
// Some programs answer the first question before the keys in front of it; none the second.
constexpr int kQuestionsForAChunk = 2;
constexpr int kQuestionsForAll = 3;

// For programs that answer no questions. Measured with terminals.
constexpr milliseconds kForAChunk{25};
constexpr milliseconds kForAll{40};
constexpr milliseconds kForLentKeys{100};
constexpr milliseconds kBetweenLooks{2};

bool IsPlainCharacter(const KeyStroke& stroke) {
    return std::holds_alternative<char32_t>(stroke.key) && !stroke.control && !stroke.shift &&
           !stroke.alt && !stroke.joined;
}

}  // namespace

X11Keys::X11Keys(std::function<void()> do_events, std::function<bool(pid_t)> wait_for_relay)
    : xtest_(X11Fingers::Exist(x_)),
      do_events_(std::move(do_events)),
      wait_for_relay_(std::move(wait_for_relay)),
      ping_(x_, do_events_),
      paste_(do_events_) {}

X11Keys::~X11Keys() {
    GiveAllBack();
}

SessionAnswer X11Keys::Type(Strokes strokes) {
    if (!xtest_) return SessionAnswer::Denied;
    x_.DropEvents();
    patience_ends_ =
        steady_clock::now() + kPatience + kPatienceForAStroke * static_cast<int>(strokes.size());
    all_taken_ = false;
    target_ = ping_.FindTarget({});
    spare_.DropLost();
    // Read anew each time: people change their layout while we run.
    const X11Keyboard keyboard(x_);
    const std::vector<Piece> pieces = PiecesOf(strokes, keyboard);
    const bool pastes = std::ranges::find(pieces, Way::Pasted, &Piece::way) != pieces.end();
    if (pastes && !paste_.CanOffer(target_, steady_clock::now() + kPatienceWithTheClipboard))
        return SessionAnswer::Denied;
    const std::size_t lent_before = spare_.lent();
    if (!LendKeys(pieces, keyboard)) {
        spare_.GiveBack(lent_before);
        return SessionAnswer::Unsupported;
    }

    Outcome outcome = Outcome::Taken;
    {
        X11Fingers fingers(x_, keyboard);
        at_work_.push_back(&fingers);
        if (spare_.any_lent() && !target_.ours) Await(kQuestionsForAChunk, milliseconds(0));
        outcome = TypePieces(pieces, keyboard, fingers);
        if (pastes) paste_.GiveBack(outcome != Outcome::NotTaken);
        at_work_.pop_back();
    }
    // Otherwise they stay lent until a later text has been taken.
    if (at_work_.empty() && spare_.any_lent() && AwaitAll()) spare_.GiveBack();
    return outcome == Outcome::Taken ? SessionAnswer::Done : SessionAnswer::Denied;
}

void X11Keys::WaitUntilTaken() {
    if (xtest_ && !all_taken_) AwaitAll();
}

void X11Keys::GiveAllBack() {
    if (!xtest_) return;
    for (auto fingers = at_work_.rbegin(); fingers != at_work_.rend(); ++fingers)
        (*fingers)->Rest();
    if (spare_.any_lent()) {
        patience_ends_ = steady_clock::now() + kPatience;
        // Our own windows will take no more keys.
        if (!FindTarget().ours) AwaitAll();
        spare_.GiveBack();
    }
    paste_.HandOver(kPatienceWithTheManager);
}

std::vector<X11Keys::Piece> X11Keys::PiecesOf(Strokes strokes, const X11Keyboard& keyboard) const {
    std::vector<xcb_keysym_t> missing;
    for (const KeyStroke& stroke : strokes)
        if (!keyboard.Find(stroke)) missing.push_back(SymbolOf(stroke));
    const bool lends = missing.empty() || (spare_.Suffice(missing, keyboard) &&
                                           !X11Paste::IsSurerThanLentKeys(target_));
    if (lends) return {{strokes, Way::Typed}};
    return PiecesWithPastedRuns(strokes, keyboard);
}

std::vector<X11Keys::Piece> X11Keys::PiecesWithPastedRuns(Strokes strokes,
                                                          const X11Keyboard& keyboard) {
    std::vector<Piece> pieces;
    while (!strokes.empty()) {
        const bool plain = IsPlainCharacter(strokes.front());
        const auto end = std::ranges::find(strokes, !plain, IsPlainCharacter);
        const Strokes run = strokes.first(static_cast<std::size_t>(end - strokes.begin()));
        const bool has_all = std::ranges::all_of(
            run, [&](const KeyStroke& stroke) { return keyboard.Find(stroke).has_value(); });
        pieces.push_back({run, plain && !has_all ? Way::Pasted : Way::Typed});
        strokes = strokes.subspan(run.size());
    }
    return pieces;
}

bool X11Keys::LendKeys(const std::vector<Piece>& pieces, const X11Keyboard& keyboard) {
    std::vector<KeyStroke> typed;
    for (const Piece& piece : pieces) {
        if (piece.way == Way::Typed)
            typed.insert(typed.end(), piece.strokes.begin(), piece.strokes.end());
        else
            typed.push_back(X11Paste::StrokeFor(target_));
    }
    std::vector<xcb_keysym_t> missing;
    for (const KeyStroke& stroke : typed)
        if (!keyboard.Find(stroke)) missing.push_back(SymbolOf(stroke));
    if (!missing.empty() && !spare_.Suffice(missing, keyboard)) return false;
    spare_.Lend(missing, keyboard);
    return std::ranges::all_of(
        typed, [&](const KeyStroke& stroke) { return ChordOf(stroke, keyboard).has_value(); });
}

std::optional<KeyChord> X11Keys::ChordOf(const KeyStroke& stroke,
                                         const X11Keyboard& keyboard) const {
    auto position = keyboard.Find(stroke);
    if (!position) position = spare_.Find(SymbolOf(stroke));
    if (!position) return std::nullopt;
    KeyChord chord{.modifiers = {}, .key = position->code, .joined = stroke.joined};
    if (stroke.control) chord.modifiers.push_back(keyboard.control());
    if (stroke.alt) chord.modifiers.push_back(keyboard.alt());
    if (position->level3) chord.modifiers.push_back(keyboard.level3());
    if (stroke.shift || position->shift) chord.modifiers.push_back(keyboard.shift());
    if (std::ranges::find(chord.modifiers, 0) != chord.modifiers.end()) return std::nullopt;
    return chord;
}

void X11Keys::TypePiece(Strokes strokes, const X11Keyboard& keyboard, X11Fingers& fingers) {
    for (std::size_t i = 0; i < strokes.size(); ++i) {
        // One of our own windows takes keys by a loop that brings more than keys, perhaps the next
        // text, which must not come into the middle of this one.
        if (i > 0 && i % kChunk == 0 && !target_.ours) Await(kQuestionsForAChunk, kForAChunk);
        if (const auto chord = ChordOf(strokes[i], keyboard)) fingers.Strike(*chord);
    }
    x_.Sync();
}

X11Keys::Outcome X11Keys::TypePieces(const std::vector<Piece>& pieces, const X11Keyboard& keyboard,
                                     X11Fingers& fingers) {
    for (const Piece& piece : pieces) {
        if (piece.way == Way::Typed) {
            TypePiece(piece.strokes, keyboard, fingers);
            continue;
        }
        const Outcome outcome = PastePiece(piece.strokes, keyboard, fingers);
        if (outcome != Outcome::Taken) return outcome;
    }
    return Outcome::Taken;
}

X11Keys::Outcome X11Keys::PastePiece(Strokes strokes, const X11Keyboard& keyboard,
                                     X11Fingers& fingers) {
    std::u32string text;
    for (const KeyStroke& stroke : strokes) text += std::get<char32_t>(stroke.key);
    const X11Ping::Target target = FindTarget();
    const Time read_by = steady_clock::now() + kPatienceWithTheClipboard;
    const auto chord = ChordOf(X11Paste::StrokeFor(target), keyboard);
    if (!chord || !paste_.Offer(text, target, read_by)) return Outcome::NotOffered;
    paste_.StrokeComes();
    fingers.Strike(*chord);
    x_.Sync();
    const bool taken = AwaitFetch(target) && Await(kQuestionsForAChunk, kForAll);
    return taken ? Outcome::Taken : Outcome::NotTaken;
}

bool X11Keys::AwaitFetch(const X11Ping::Target& target) {
    Time end = std::min(steady_clock::now() + kPatienceForAFetch, patience_ends_);
    bool asked = false;
    // It may have been fetched for another program than the one that pastes. One that answers is
    // asked afterwards whether it has come so far; for others we wait longer.
    Time other_counts = end;
    bool fetched_by_other = false;
    for (;;) {
        if (paste_.FetchedBy(target)) return true;
        const Time now = steady_clock::now();
        if (!fetched_by_other && paste_.Fetched()) {
            fetched_by_other = true;
            if (target.answers) other_counts = std::min(now + kPatienceForTheTarget, end);
        }
        if (now >= (fetched_by_other ? other_counts : end)) {
            // Its keys may still be on their way to one that does not hang.
            const Time answer_by = std::min(now + kPatienceForAnAnswer, patience_ends_);
            if (fetched_by_other || std::exchange(asked, true) || !target.answers ||
                !ping_.Ask(target, 1, answer_by))
                break;
            end = patience_ends_;
            continue;
        }
        ping_.Pause(target, std::min(now + kBetweenLooks, end));
    }
    if (!fetched_by_other) patience_ends_ = end;
    return fetched_by_other;
}

const X11Ping::Target& X11Keys::FindTarget() {
    return target_ = ping_.FindTarget(target_);
}

bool X11Keys::Await(int questions, milliseconds without_answers) {
    const Time now = steady_clock::now();
    if (now >= patience_ends_) return false;
    const X11Ping::Target target = FindTarget();
    if (!target.answers) {
        ping_.Pause(target, std::min(now + without_answers, patience_ends_));
        return true;
    }
    if (ping_.Ask(target, questions, std::min(now + kPatience, patience_ends_))) return true;
    // Who is silent once is not asked again: the person waits.
    patience_ends_ = now;
    return false;
}

bool X11Keys::AwaitAll() {
    const auto without_answers = spare_.any_lent() ? kForAll + kForLentKeys : kForAll;
    if (!Await(kQuestionsForAll, without_answers)) return false;
    all_taken_ = !wait_for_relay_ || !wait_for_relay_(FindTarget().process) ||
                 Await(kQuestionsForAll, milliseconds(0));
    return all_taken_;
}

}  // namespace corvane::linux_desktop
