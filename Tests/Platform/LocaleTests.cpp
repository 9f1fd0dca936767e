#include "Platform/Locale.h"

#include "Tests/Helpers/Environment.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

std::string localeNamed(const std::string& value) {
    const ScopedEnvironment environment{{"LC_ALL", value}};
    return currentLocale(LocaleCategory::time);
}

TEST(CurrentLocale, isUSEnglishWhenNothingIsSet) {
    const ScopedEnvironment environment{
        {"LC_ALL", std::nullopt}, {"LC_TIME", std::nullopt}, {"LANG", std::nullopt}};
    EXPECT_EQ(currentLocale(LocaleCategory::time), "en_US");
}

TEST(CurrentLocale, isUSEnglishForTheCLocale) {
    for (const char* name : {"C", "C.UTF-8", "C.utf8", "POSIX", "POSIX.ISO-8859-1"})
        EXPECT_EQ(localeNamed(name), "en_US") << name;
}

TEST(CurrentLocale, asksTheCategoryItsOwnVariable) {
    const ScopedEnvironment environment{{"LC_ALL", std::nullopt},
                                        {"LC_TIME", "de_DE"},
                                        {"LC_NUMERIC", "fr_FR"},
                                        {"LC_COLLATE", "sv_SE"},
                                        {"LANG", "pl_PL"}};
    EXPECT_EQ(currentLocale(LocaleCategory::time), "de_DE");
    EXPECT_EQ(currentLocale(LocaleCategory::numeric), "fr_FR");
    EXPECT_EQ(currentLocale(LocaleCategory::collation), "sv_SE");
}

TEST(CurrentLocale, prefersTheVariableForAllAndFallsBackToTheLanguage) {
    const ScopedEnvironment language{{"LC_ALL", std::nullopt}, {"LC_TIME", std::nullopt}, {"LANG", "pl_PL"}};
    EXPECT_EQ(currentLocale(LocaleCategory::time), "pl_PL");
    const ScopedEnvironment all{{"LC_ALL", "ja_JP"}, {"LC_TIME", "de_DE"}};
    EXPECT_EQ(currentLocale(LocaleCategory::time), "ja_JP");
}

TEST(CurrentLocale, passesOverEmptyVariablesButNotOverTheCLocale) {
    const ScopedEnvironment environment{
        {"LC_ALL", ""}, {"LC_TIME", "C"}, {"LC_NUMERIC", ""}, {"LANG", "de_DE"}};
    EXPECT_EQ(currentLocale(LocaleCategory::time), "en_US");
    EXPECT_EQ(currentLocale(LocaleCategory::numeric), "de_DE");
}

TEST(CurrentLocale, dropsEncodingsAndTurnsModifiersIntoScripts) {
    EXPECT_EQ(localeNamed("de_DE.UTF-8"), "de_DE");
    EXPECT_EQ(localeNamed("de_DE.ISO-8859-15@euro"), "de_DE");
    EXPECT_EQ(localeNamed("ca_ES@valencia"), "ca_ES");
    EXPECT_EQ(localeNamed("sr_RS@latin"), "sr_Latn_RS");
    EXPECT_EQ(localeNamed("sr_RS.UTF-8@latin"), "sr_Latn_RS");
    EXPECT_EQ(localeNamed("uz_UZ.UTF-8@cyrillic"), "uz_Cyrl_UZ");
    EXPECT_EQ(localeNamed("th_TH@calendar=buddhist"), "th_TH");
}

TEST(CurrentLocale, knowsTheSpellingsOfOneLocale) {
    EXPECT_EQ(localeNamed("de"), "de");
    EXPECT_EQ(localeNamed("DE_de"), "de_DE");
    EXPECT_EQ(localeNamed("en-us"), "en_US");
    EXPECT_EQ(localeNamed("en_US_POSIX"), "en_US");
    EXPECT_EQ(localeNamed("zh_hant_TW"), "zh_Hant_TW");
    EXPECT_EQ(localeNamed("es_419"), "es_419");
    EXPECT_EQ(localeNamed("fil_PH"), "fil_PH");
}

TEST(CurrentLocale, isUSEnglishForWhatIsNoLanguage) {
    const std::string veryLong(1'000'000, 'x');
    for (const std::string& name : {std::string("german"), std::string("../../etc/passwd"), std::string("%s%n"),
                                    std::string("_DE"), std::string("."), std::string("@"), std::string("d"),
                                    std::string("d\xC3\xA9_FR"), std::string("12_DE"), veryLong})
        EXPECT_EQ(localeNamed(name), "en_US") << name.substr(0, 20);
}

TEST(CurrentLocale, dropsPartsThatAreNoRegion) {
    EXPECT_EQ(localeNamed("de_"), "de");
    EXPECT_EQ(localeNamed("de__"), "de");
    EXPECT_EQ(localeNamed("de_D\xFF"), "de");
    EXPECT_EQ(localeNamed("de_GERMANY_AT"), "de_AT");
    EXPECT_EQ(localeNamed("de_DE_AT"), "de_DE");
    EXPECT_EQ(localeNamed("de_" + std::string(1'000'000, 'x')), "de");
}

} // namespace
} // namespace quillmar
