#include <PlannerCore/Detail/Text.h>
#include <PlannerCore/Titles.h>

#include "Generators.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <string>
#include <string_view>

using namespace planner;
using detail::wellFormedPrefix;
using namespace std::string_view_literals;

namespace {

/// Every code point with the property White_Space (Unicode Character Database, PropList.txt).
constexpr std::array whiteSpace{"\t"sv,     "\n"sv,     "\v"sv,     "\f"sv,     "\r"sv,
                                " "sv,      "\u0085"sv, "\u00A0"sv, "\u1680"sv, "\u2000"sv,
                                "\u2001"sv, "\u2002"sv, "\u2003"sv, "\u2004"sv, "\u2005"sv,
                                "\u2006"sv, "\u2007"sv, "\u2008"sv, "\u2009"sv, "\u200A"sv,
                                "\u2028"sv, "\u2029"sv, "\u202F"sv, "\u205F"sv, "\u3000"sv};

struct Counted {
    std::string_view text;
    std::size_t characters;
};

} // namespace

TEST(Trimming, TakesEveryUnicodeWhiteSpaceAndLineBreakFromBothEnds) {
    for (const auto space : whiteSpace) {
        const auto padded = std::string(space) + "a" + std::string(space) + "b" + std::string(space);
        EXPECT_EQ(titles::trimmed(padded), "a" + std::string(space) + "b") << padded;
        EXPECT_TRUE(titles::isBlank(std::string(space) + "\r\n" + std::string(space)));
    }
}

TEST(Trimming, LeavesWhatOnlyLooksEmpty) {
    for (const auto text :
         {"\u200B"sv, "\uFEFF"sv, "\u2060"sv, "\u180E"sv, "\u00AD"sv, "\0"sv, "\x1F"sv, "\u2800"sv})
        EXPECT_EQ(titles::trimmed(text), text) << text;
}

TEST(Trimming, OfNothingAndOfOnlyWhiteSpaceGivesNothing) {
    EXPECT_EQ(titles::trimmed(""), "");
    EXPECT_EQ(titles::trimmed("   \n"), "");
    EXPECT_TRUE(titles::isBlank(""));
    EXPECT_FALSE(titles::isBlank(" x "));
}

TEST(Trimming, StopsAtBytesThatAreNotUTF8) {
    EXPECT_EQ(titles::trimmed(" \x80 "), "\x80");
    EXPECT_EQ(titles::trimmed(" \xE2\x80 "), "\xE2\x80");
    EXPECT_EQ(titles::trimmed("\xA8\u2003"), "\xA8");
}

TEST(CharacterCount, CountsWhatAReaderSeesAsOneCharacter) {
    constexpr std::array samples{
        Counted{"", 0},
        Counted{"Water", 5},
        Counted{"e\u0301", 1},                   // e and a combining acute accent
        Counted{"\u0301", 1},                    // an accent on nothing
        Counted{"a\u0301\u0323b", 2},            // two marks on one letter
        Counted{"👩‍👩‍👧‍👦", 1}, // a family
        Counted{"👍🏽👍", 2},              // with a skin tone, without
        Counted{"🇩🇪🇫🇷", 2},                      // two flags
        Counted{"🇩🇪🇫", 2},                       // a flag and half of one
        Counted{"\u1112\u1161\u11AB", 1},        // Hangul jamo of one syllable
        Counted{"\u1112\u1161\u11AB\u1112", 2},
        Counted{"नि", 1},   // a letter and its vowel sign
        Counted{"\r\n", 1}, // one line break
        Counted{"a\r\nb", 3},
        Counted{"\n\r", 2},
        Counted{"\r\r\n\n", 3},
        Counted{"\n\u0301", 2}, // a mark never joins a line break
        Counted{"a\u200Db", 2},
        Counted{"日本語", 3},
        Counted{"☎\uFE0F", 1},
        Counted{"x\0y"sv, 3},
    };
    for (const auto& [text, characters] : samples)
        EXPECT_EQ(titles::characterCount(text), characters) << text;
}

TEST(CharacterCount, CountsEachByteThatIsNotUTF8) {
    EXPECT_EQ(titles::characterCount("a\x80\x80"
                                     "b"),
              4u);
    EXPECT_EQ(titles::characterCount("\xF0\x9F\x91"), 3u);
}

RC_GTEST_PROP(CharacterCount, OfTwoTextsWithALineBreakBetweenIsTheirSumAndOne, ()) {
    const auto left = *generators::text();
    const auto right = *generators::text();
    // A carriage return at the end would become one with the line feed.
    RC_PRE(!left.ends_with('\r'));
    RC_ASSERT(titles::characterCount(left + "\n" + right) ==
              titles::characterCount(left) + 1 + titles::characterCount(right));
}

RC_GTEST_PROP(Trimming, LeavesTextThatNeitherBeginsNorEndsWithWhiteSpace, ()) {
    const auto text = *generators::text();
    const auto trimmed = titles::trimmed(text);
    RC_ASSERT(text.find(trimmed) != std::string::npos);
    for (const auto space : whiteSpace) {
        RC_ASSERT(!trimmed.starts_with(space));
        RC_ASSERT(!trimmed.ends_with(space));
    }
}

TEST(WellFormedPrefix, AcceptsAllUTF8) {
    for (const auto text :
         {""sv, "a"sv, "\0"sv, "\u007F\u0080\u07FF\u0800\uFFFF"sv, "\U00010000\U0010FFFF"sv, "\uD7FF\uE000"sv,
          "\uFFFE\uFDD0"sv, "more than eight bytes of ASCII é and more"sv})
        EXPECT_EQ(wellFormedPrefix(text), text.size()) << text;
}

TEST(WellFormedPrefix, EndsAtTheFirstByteThatDoesNotBelong) {
    const std::string before = "twelve bytes";
    for (const auto wrong : {"\x80"sv, "\xC0\x80"sv, "\xC1\xBF"sv, "\xC3"sv, "\xC3("sv, "\xE0\x80\x80"sv,
                             "\xE2\x82"sv, "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv, "\xF0\x80\x80\x80"sv,
                             "\xF0\x9F\x98"sv, "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xFF"sv}) {
        EXPECT_EQ(wellFormedPrefix(before + std::string(wrong)), before.size()) << wrong;
        EXPECT_EQ(wellFormedPrefix(std::string(wrong) + before), 0u) << wrong;
    }
}

RC_GTEST_PROP(WellFormedPrefix, IsTheWholeOfEveryWellFormedText, ()) {
    const auto text = *generators::text();
    RC_ASSERT(wellFormedPrefix(text) == text.size());
}
