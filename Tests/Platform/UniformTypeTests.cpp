#include "Platform/UniformType.h"

#include "Platform/UniformTypeTable.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

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

std::vector<std::string> lineageOf(std::string_view identifier) {
    std::vector<std::string> identifiers;
    for (const UniformType& step : UniformType::withIdentifier(identifier).value().lineage())
        identifiers.emplace_back(step.identifier());
    return identifiers;
}

TEST(UniformType, hasALineageFromItselfToTheRoots) {
    EXPECT_EQ(lineageOf("public.png"), (std::vector<std::string>{"public.png", "public.image", "public.data",
                                                                 "public.content", "public.item"}));
}

TEST(UniformType, withoutParentsIsItsOwnLineage) {
    EXPECT_EQ(lineageOf("public.item"), std::vector<std::string>{"public.item"});
}

TEST(UniformType, hasAllItsParentsInItsLineageBeforeTheirParents) {
    const auto lineage = lineageOf("public.vcard"); // text and a contact
    ASSERT_GE(lineage.size(), 4U);
    EXPECT_EQ(lineage[0], "public.vcard");
    EXPECT_EQ(lineage[1], "public.text");
    EXPECT_EQ(lineage[2], "public.contact");
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

TEST(UniformTypeTable, hasEveryAncestorOnceInALineageAndConformsToIt) {
    for (const auto& row : UniformTypeTable::types) {
        const auto type = UniformType::withIdentifier(row.identifier).value();
        auto identifiers = lineageOf(row.identifier);
        EXPECT_EQ(identifiers.front(), row.identifier);
        for (const std::string& identifier : identifiers)
            EXPECT_TRUE(type.conformsTo(identifier)) << row.identifier << ' ' << identifier;
        std::ranges::sort(identifiers);
        EXPECT_EQ(std::ranges::adjacent_find(identifiers), identifiers.end()) << row.identifier;
    }
}

} // namespace
} // namespace quillmar
