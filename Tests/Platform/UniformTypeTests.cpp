#include "Platform/UniformType.h"

#include "Platform/UniformTypeTable.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace quillmar {
namespace {

std::string identifierOf(std::optional<UniformType> type) {
    return type ? std::string(type->identifier()) : "none";
}

TEST(UniformType, isFoundByItsIdentifier) {
    EXPECT_EQ(identifierOf(UniformType::withIdentifier("public.plain-text")), "public.plain-text");
    EXPECT_EQ(identifierOf(UniformType::withIdentifier("public.plain-tex")), "none");
    EXPECT_EQ(identifierOf(UniformType::withIdentifier("")), "none");
}

TEST(UniformType, isFoundByAnExtensionInAnyCase) {
    EXPECT_EQ(identifierOf(UniformType::ofFile("md")), "net.daringfireball.markdown");
    EXPECT_EQ(identifierOf(UniformType::ofFile("MD")), "net.daringfireball.markdown");
}

TEST(UniformType, isUnknownForExtensionsThatNobodyClaims) {
    EXPECT_EQ(identifierOf(UniformType::ofFile("no-such-extension")), "none");
    EXPECT_EQ(identifierOf(UniformType::ofFile("")), "none");
}

TEST(UniformType, ofAFileIsNeverADirectoryTypeButAnApplicationBundle) {
    EXPECT_EQ(identifierOf(UniformType::ofFile("rtfd")), "none");
    EXPECT_EQ(identifierOf(UniformType::ofFile("framework")), "none");
    EXPECT_EQ(identifierOf(UniformType::ofFile("app")), "com.apple.application-bundle");
}

TEST(UniformType, ofAnExtensionForBothFormsFollowsTheForm) {
    EXPECT_EQ(identifierOf(UniformType::ofFile("pages")), "com.apple.iwork.pages.sffpages");
    EXPECT_EQ(identifierOf(UniformType::ofPackage("pages")), "com.apple.iwork.pages.pages");
    EXPECT_EQ(identifierOf(UniformType::ofFile("epub")), "org.idpf.epub-container");
    EXPECT_EQ(identifierOf(UniformType::ofPackage("epub")), "org.idpf.epub-folder");
}

TEST(UniformType, ofAPackageNeedsAPackageExtension) {
    EXPECT_EQ(identifierOf(UniformType::ofPackage("txt")), "none");
    EXPECT_EQ(identifierOf(UniformType::ofPackage("framework")), "none");
    EXPECT_EQ(identifierOf(UniformType::ofPackage("APP")), "com.apple.application-bundle");
}

TEST(UniformType, conformsToItselfAndItsAncestorsOnly) {
    const auto source = UniformType::withIdentifier("public.c-source").value();
    EXPECT_TRUE(source.conformsTo("public.c-source"));
    EXPECT_TRUE(source.conformsTo("public.source-code"));
    EXPECT_TRUE(source.conformsTo("public.text"));
    EXPECT_TRUE(source.conformsTo("public.data"));
    EXPECT_FALSE(source.conformsTo("public.image"));
    EXPECT_FALSE(source.conformsTo("no.such.type"));
}

TEST(UniformType, takesTheDescriptionOfItsNearestAncestor) {
    EXPECT_EQ(UniformType::withIdentifier("net.daringfireball.markdown")->localizedDescription(),
              "Markdown document");
    const auto plainText = UniformType::withIdentifier("public.plain-text").value();
    EXPECT_EQ(plainText.localizedDescription(),
              UniformType::withIdentifier("public.text")->localizedDescription());
}

TEST(UniformType, hasAnEmptyMimeTypeWhenTheTableHasNone) {
    EXPECT_EQ(UniformType::withIdentifier("public.png")->mimeType(), "image/png");
    EXPECT_EQ(UniformType::withIdentifier("public.folder")->mimeType(), "");
}

TEST(UniformTypeTable, isSortedForBinarySearch) {
    EXPECT_TRUE(std::ranges::is_sorted(UniformTypeTable::types, {}, &UniformTypeTable::Type::identifier));
    EXPECT_TRUE(std::ranges::is_sorted(UniformTypeTable::extensions, {}, &UniformTypeTable::Extension::name));
}

TEST(UniformTypeTable, describesEveryTypeAndEndsEveryLineageAtARoot) {
    for (const auto& row : UniformTypeTable::types) {
        const auto type = UniformType::withIdentifier(row.identifier);
        ASSERT_TRUE(type) << row.identifier;
        EXPECT_FALSE(type->conformsTo("no.such.type"));
    }
}

} // namespace
} // namespace quillmar
