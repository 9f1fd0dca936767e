#include "Support/FileKind.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

FileKind kindOfFile(std::string_view extension) { return fileKind(UniformType::ofFile(extension), false); }

TEST(FileKind, tellsTheNineKindsApart) {
    const std::pair<const char*, FileKind> expectations[] = {
        {"app", FileKind::apps},      {"png", FileKind::images},     {"mov", FileKind::video},
        {"mp3", FileKind::audio},     {"zip", FileKind::archives},   {"cpp", FileKind::code},
        {"json", FileKind::code},     {"yaml", FileKind::code},      {"plist", FileKind::code},
        {"xml", FileKind::code},      {"docx", FileKind::documents}, {"rtf", FileKind::documents},
        {"key", FileKind::documents}, {"csv", FileKind::documents},  {"ttf", FileKind::other},
    };
    for (const auto& [extension, kind] : expectations) EXPECT_EQ(kindOfFile(extension), kind) << extension;
}

TEST(FileKind, ofAScriptIsCodeThoughAScriptIsText) {
    EXPECT_EQ(kindOfFile("sh"), FileKind::code);
    EXPECT_EQ(kindOfFile("txt"), FileKind::documents);
    EXPECT_EQ(kindOfFile("pdf"), FileKind::documents);
}

TEST(FileKind, ofADiskImageIsArchives) { EXPECT_EQ(kindOfFile("dmg"), FileKind::archives); }

TEST(FileKind, ofAnApplicationWithoutFolderFlagIsApps) {
    EXPECT_EQ(fileKind(UniformType::ofPackage("app"), false), FileKind::apps);
}

TEST(FileKind, ofAFolderIsFoldersWhateverItsType) {
    EXPECT_EQ(fileKind(UniformType::ofPackage("app"), true), FileKind::folders);
    EXPECT_EQ(fileKind(std::nullopt, true), FileKind::folders);
}

TEST(FileKind, withoutATypeIsOther) {
    EXPECT_EQ(fileKind(std::nullopt, false), FileKind::other);
    EXPECT_EQ(fileKind(UniformType::withIdentifier("public.data"), false), FileKind::other);
}

TEST(FileKind, goesThroughItsRawValueAndBack) {
    for (const FileKind kind : allFileKinds) EXPECT_EQ(fileKindWithRawValue(rawValue(kind)), kind);
    EXPECT_EQ(rawValue(FileKind::folders), "folders");
    EXPECT_EQ(rawValue(FileKind::other), "other");
    EXPECT_EQ(fileKindWithRawValue("Folders"), std::nullopt);
    EXPECT_EQ(fileKindWithRawValue(""), std::nullopt);
}

} // namespace
} // namespace quillmar
