// Part of KT Corvane. SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/lexicon/personal_ngrams.h"

#include <pocketsphinx.h>
#include <sphinxbase/ckd_alloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <locale>
#include <map>
#include <sstream>
#include <string_view>

namespace corvane::engine {
namespace {

// Enough for a pair of the text to win where it fits, and too little for the text to be heard in
// everything. Chosen, not fitted.
constexpr float kPersonalShare = 0.1F;

constexpr const char* kBegin = "<s>";
constexpr const char* kEnd = "</s>";
// All that was not in the text, of which every word of it takes its likelihood where it was not
// expected: a word of one's own is as likely there as a usual noun, one in ten thousand.
constexpr const char* kOther = "<other>";
constexpr double kOtherWords = 1000.0;

using Counts = std::map<std::string, double>;

struct PairCounts {
    Counts words;                         ///< without the beginnings
    std::map<std::string, Counts> after;  ///< by the word before
};

PairCounts CountsOf(const PersonalText& text) {
    PairCounts counts;
    counts.words[kOther] = kOtherWords;
    counts.words[kEnd] = 1.0;
    for (const std::string& sentence : text.sentences) {
        std::istringstream rest(sentence);
        std::string before = kBegin;
        for (std::string word; rest >> word; before = word) {
            counts.words[word] += 1.0;
            counts.after[before][word] += 1.0;
        }
        counts.words[kEnd] += 1.0;
        counts.after[before][kEnd] += 1.0;
    }
    for (const auto& [word, ways] : text.words) counts.words.try_emplace(word, 1.0);
    return counts;
}

double Sum(const Counts& counts) {
    double sum = 0.0;
    for (const auto& [word, count] : counts) sum += count;
    return sum;
}

/// How much is left for words that never stood there: by how often there was a new one.
double BackOff(const PairCounts& counts, const std::string& before) {
    const auto found = counts.after.find(before);
    if (found == counts.after.end()) return 1.0;
    const auto kinds = static_cast<double>(found->second.size());
    return kinds / (Sum(found->second) + kinds);
}

/// The decoder's own name for one more way to say a word.
bool AddWay(ps_decoder_s& decoder, const std::string& word, const std::string& phones) {
    for (int way = 1; way <= 32; ++way) {
        const std::string name = way == 1 ? word : word + "(" + std::to_string(way) + ")";
        const std::unique_ptr<char, void (*)(void*)> known(ps_lookup_word(&decoder, name.c_str()),
                                                           ckd_free);
        if (!known) return ps_add_word(&decoder, name.c_str(), phones.c_str(), FALSE) >= 0;
        if (phones == known.get()) return true;
    }
    return false;
}

// The library reads n-grams from named files only. This one is in memory.
Ngrams ReadNgrams(const std::string& text, ps_decoder_s& decoder) {
    const int file = memfd_create("ngrams", MFD_CLOEXEC);
    if (file < 0) return nullptr;
    Ngrams ngrams;
    if (write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size()))
        ngrams.reset(ngram_model_read(ps_get_config(&decoder),
                                      ("/proc/self/fd/" + std::to_string(file)).c_str(), NGRAM_ARPA,
                                      ps_get_logmath(&decoder)));
    close(file);
    return ngrams;
}

}  // namespace

void FreeNgrams::operator()(ngram_model_s* model) const {
    ngram_model_free(model);
}

std::vector<std::string> SentencesOf(const std::string& text) {
    constexpr std::string_view kEnds = ".!?\n;:";
    std::vector<std::string> sentences(1);
    std::string word;
    const auto end_word = [&] {
        while (!word.empty() && (word.back() == '\'' || word.back() == '-')) word.pop_back();
        const std::size_t first = word.find_first_not_of("'-");
        if (first != std::string::npos && IsWordToLearn(word.substr(first)))
            sentences.back() += (sentences.back().empty() ? "" : " ") + word.substr(first);
        word.clear();
    };
    for (const char c : text) {
        if (kEnds.find(c) != std::string_view::npos) {
            end_word();
            if (!sentences.back().empty()) sentences.emplace_back();
        } else if (static_cast<unsigned char>(c) >= 0x80 || c == '\'' || c == '-' ||
                   (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
            word += c;
        } else if (c >= 'A' && c <= 'Z') {
            word += static_cast<char>(c - 'A' + 'a');
        } else {
            end_word();
        }
    }
    end_word();
    if (sentences.back().empty()) sentences.pop_back();
    return sentences;
}

std::string NgramsOf(const PersonalText& text) {
    const PairCounts counts = CountsOf(text);
    const double all = Sum(counts.words);
    std::size_t pairs = 0;
    for (const auto& [before, after] : counts.after) pairs += after.size();

    std::ostringstream arpa;
    arpa.imbue(std::locale::classic());
    arpa << "\\data\\\nngram 1=" << counts.words.size() + 1;
    if (pairs > 0) arpa << "\nngram 2=" << pairs;
    arpa << "\n\n\\1-grams:\n-99 " << kBegin << ' ' << std::log10(BackOff(counts, kBegin)) << '\n';
    for (const auto& [word, count] : counts.words)
        arpa << std::log10(count / all) << ' ' << word << ' ' << std::log10(BackOff(counts, word))
             << '\n';
    if (pairs > 0) arpa << "\n\\2-grams:\n";
    for (const auto& [before, after] : counts.after) {
        const double new_ones = BackOff(counts, before);
        for (const auto& [word, count] : after)
            arpa << std::log10((1.0 - new_ones) * count / Sum(after) +
                               new_ones * counts.words.at(word) / all)
                 << ' ' << before << ' ' << word << '\n';
    }
    arpa << "\n\\end\\\n";
    return arpa.str();
}

Ngrams Personalised(Ngrams general, const PersonalText& text, ps_decoder_s& decoder) {
    if (text.Empty()) return general;
    for (const auto& [word, ways] : text.words)
        for (const std::string& phones : ways) (void)AddWay(decoder, word, phones);
    const Ngrams personal = ReadNgrams(NgramsOf(text), decoder);
    if (!personal) return general;
    std::array<ngram_model_t*, 2> models{general.get(), personal.get()};
    std::array<std::string, 2> names{"general", "personal"};
    std::array<char*, 2> name_pointers{names[0].data(), names[1].data()};
    std::array<float32, 2> shares{1.0F - kPersonalShare, kPersonalShare};
    // The mixture holds both.
    Ngrams mixed(ngram_model_set_init(ps_get_config(&decoder), models.data(), name_pointers.data(),
                                      shares.data(), static_cast<int32>(models.size())));
    return mixed ? std::move(mixed) : std::move(general);
}

}  // namespace corvane::engine
