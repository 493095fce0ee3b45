#include <PlannerCore/Uuid.h>

#include <gtest/gtest.h>

#include <cctype>
#include <string>

using planner::Uuid;

TEST(Uuid, ReadsEitherLetterCaseAndWritesUpperCase) {
    const auto uuid = Uuid::parse("0f8fad5b-D9CB-469f-a165-70867728950e");
    ASSERT_TRUE(uuid);
    EXPECT_EQ(uuid->text(), "0F8FAD5B-D9CB-469F-A165-70867728950E");
}

TEST(Uuid, RefusesAnythingButTheCanonicalForm) {
    for (const auto* text : {"", "0F8FAD5BD9CB469FA16570867728950E", "{0F8FAD5B-D9CB-469F-A165-70867728950E}",
                             "0F8FAD5B-D9CB-469F-A165-70867728950", "0F8FAD5B-D9CB-469F-A165-70867728950G",
                             "0F8FAD5B-D9CB-469FA-165-70867728950E", " F8FAD5B-D9CB-469F-A165-70867728950E"})
        EXPECT_FALSE(Uuid::parse(text)) << text;
}

TEST(Uuid, RandomOnesAreVersionFourAndDiffer) {
    const auto first = Uuid::random();
    const auto text = first.text();
    EXPECT_EQ(text[14], '4');
    EXPECT_NE(std::string_view("89AB").find(text[19]), std::string_view::npos);
    EXPECT_NE(first, Uuid::random());
}

TEST(Uuid, RefusesAnyOtherCharacterAtAnyPlace) {
    const std::string text = "0F8FAD5B-D9CB-469F-A165-70867728950E";
    for (std::size_t place = 0; place < text.size(); ++place)
        for (int value = 0; value < 256; ++value) {
            auto changed = text;
            changed[place] = char(value);
            const bool hyphen = text[place] == '-';
            const bool fits = hyphen ? value == '-' : value < 128 && std::isxdigit(value) != 0;
            EXPECT_EQ(Uuid::parse(changed).has_value(), fits) << changed;
        }
}
