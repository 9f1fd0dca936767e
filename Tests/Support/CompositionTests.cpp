#include "Support/Composition.h"

#include <gtest/gtest.h>

#include <limits>

namespace quillmar {
namespace {

using Parts = std::vector<CompositionPart>;

TEST(Composition, ofNothingHasNoParts) { EXPECT_EQ(Composition().parts(), Parts{}); }

TEST(Composition, addsUpSizesAndCountsOfAKind) {
    Composition composition;
    composition.add(FileKind::audio, 3);
    composition.add(FileKind::audio, 4);
    EXPECT_EQ(composition.parts(), (Parts{{FileKind::audio, 7, 2}}));
}

TEST(Composition, putsTheLargestKindFirst) {
    Composition composition;
    composition.add(FileKind::folders, 1);
    composition.add(FileKind::other, 3);
    composition.add(FileKind::code, 2);
    EXPECT_EQ(composition.parts(),
              (Parts{{FileKind::other, 3, 1}, {FileKind::code, 2, 1}, {FileKind::folders, 1, 1}}));
}

TEST(Composition, keepsKindsOfEqualSizeInTheirOwnOrder) {
    Composition composition;
    for (auto kind = allFileKinds.rbegin(); kind != allFileKinds.rend(); ++kind) composition.add(*kind, 5);
    const Parts parts = composition.parts();
    ASSERT_EQ(parts.size(), allFileKinds.size());
    for (std::size_t i = 0; i < parts.size(); ++i) EXPECT_EQ(parts[i].kind, allFileKinds.at(i)) << i;
}

TEST(Composition, hasAPartForAKindOfEmptyItems) {
    Composition composition;
    composition.add(FileKind::video, 0);
    EXPECT_EQ(composition.parts(), (Parts{{FileKind::video, 0, 1}}));
}

TEST(Composition, stopsAtTheLimitsOfItsNumbers) {
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    Composition composition;
    composition.add(FileKind::images, most - 1);
    composition.add(FileKind::images, 5);
    EXPECT_EQ(composition.parts(), (Parts{{FileKind::images, most, 2}}));
}

} // namespace
} // namespace quillmar
