#include "Support/TypesByExtension.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillmar {
namespace {

/// The identifier of the type of a file called \p name; empty when it has none.
std::string_view typeOf(std::string_view name) {
    TypesByExtension types;
    const auto& type = types.ofName(name).type;
    return type ? type->identifier() : std::string_view();
}

TEST(TypesByExtension, tellsTypeAndKind) {
    TypesByExtension types;
    const auto& file = types.ofName("notes.md");
    EXPECT_EQ(file.type, UniformType::withIdentifier("net.daringfireball.markdown"));
    EXPECT_EQ(file.kind, FileKind::documents);
}

TEST(TypesByExtension, takesCapitalsForSmallLetters) { EXPECT_EQ(typeOf("PHOTO.PNG"), "public.png"); }

TEST(TypesByExtension, knowsNoTypeWithoutAnExtension) {
    TypesByExtension types;
    for (const char* name : {"README", ".png", "png.", "", "a.b c"}) {
        EXPECT_EQ(types.ofName(name).type, std::nullopt) << name;
        EXPECT_EQ(types.ofName(name).kind, FileKind::other) << name;
    }
}

TEST(TypesByExtension, knowsNoTypeForAnExtensionThatNobodyClaims) {
    TypesByExtension types;
    EXPECT_EQ(types.ofName("a.unheard-of").type, std::nullopt);
    EXPECT_EQ(types.ofName("a.unheard-of").kind, FileKind::other);
    EXPECT_EQ(types.ofName("a.\xFF").type, std::nullopt);
}

TEST(TypesByExtension, givesAFileNoTypeOfAFolder) {
    EXPECT_EQ(typeOf("a.framework"), "");
    EXPECT_EQ(typeOf("a.app"), "com.apple.application-bundle");
}

TEST(TypesByExtension, answersTheSameForEveryNameWithTheExtension) {
    TypesByExtension types;
    const auto& first = types.ofName("a.py");
    EXPECT_EQ(&types.ofName("b.c.py"), &first);
    EXPECT_EQ(first.type, UniformType::withIdentifier("public.python-script"));
}

TEST(TypesByExtension, keepsAnAnswerWhileOthersFollow) {
    std::vector<std::string> names;
    for (int i = 0; i < 1'000; ++i) names.push_back("a.x" + std::to_string(i));
    TypesByExtension types;
    const auto& first = types.ofName("a.mp3");
    for (const std::string& name : names) types.ofName(name);
    EXPECT_EQ(first.kind, FileKind::audio);
    EXPECT_EQ(&types.ofName("b.mp3"), &first);
}

} // namespace
} // namespace quillmar
