#include "QuillmarQuickLook/Icons/IconNames.h"

#include "Platform/UniformTypeTable.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quillmar::IconNames {
namespace {

using Strings = std::vector<std::string>;

const Strings unknownNames{"unknown", "application-octet-stream", "text-x-generic"};

Strings namesOf(std::string_view identifier) { return ofType(UniformType::withIdentifier(identifier).value()); }

/// The names of the type before those that all types have; not for text, which has one of them for itself.
Strings ownNamesOf(std::string_view identifier) {
    Strings names = namesOf(identifier);
    names.resize(names.size() - std::min(names.size(), unknownNames.size()));
    return names;
}

std::string lastOwnNameOf(std::string_view identifier) {
    const Strings names = ownNamesOf(identifier);
    return names.empty() ? "none" : names.back();
}

TEST(IconNames, ofWhatNobodyKnowsAreThoseOfAPlainSheet) { EXPECT_EQ(ofUnknown(), unknownNames); }

TEST(IconNames, endWithWhatEveryThemeHas) {
    for (const auto& row : UniformTypeTable::types) {
        const Strings names = namesOf(row.identifier);
        for (const std::string& name : unknownNames)
            EXPECT_NE(std::ranges::find(names, name), names.end()) << row.identifier;
    }
}

TEST(IconNames, areSingleNamesAndEachThereOnce) {
    for (const auto& row : UniformTypeTable::types) {
        Strings names = namesOf(row.identifier);
        for (const std::string& name : names) {
            EXPECT_FALSE(name.empty()) << row.identifier;
            EXPECT_EQ(name.find('/'), std::string::npos) << row.identifier;
        }
        std::ranges::sort(names);
        EXPECT_EQ(std::ranges::adjacent_find(names), names.end()) << row.identifier;
    }
}

TEST(IconNames, beginWithTheMIMETypeThenTheFamily) {
    EXPECT_EQ(ownNamesOf("public.png"), (Strings{"image-png", "image-x-generic"}));
    EXPECT_EQ(ownNamesOf("com.adobe.pdf"), (Strings{"application-pdf", "x-office-document"}));
    EXPECT_EQ(ownNamesOf("public.html"), (Strings{"text-html"}));
}

TEST(IconNames, leaveVagueMIMETypesOfAncestorsOut) {
    const Strings names = namesOf("net.daringfireball.markdown");
    EXPECT_EQ(std::ranges::find(names, "text-plain"), names.end());
    EXPECT_EQ(ownNamesOf("public.font"), Strings{"font-x-generic"});
}

TEST(IconNames, keepTheVagueMIMETypeOfATypeItself) {
    EXPECT_EQ(namesOf("public.plain-text").front(), "text-plain");
    EXPECT_EQ(namesOf("public.data").front(), "application-octet-stream");
}

TEST(IconNames, ofFoldersAreThoseOfFolders) {
    const Strings folder{"folder", "inode-directory"};
    EXPECT_EQ(ownNamesOf("public.folder"), folder);
    EXPECT_EQ(ownNamesOf("public.directory"), folder);
    EXPECT_EQ(ownNamesOf("com.apple.package"), folder);
}

TEST(IconNames, ofApplicationsAreThoseOfPrograms) {
    for (const auto* type : {"com.apple.application", "com.apple.application-bundle", "public.unix-executable"})
        EXPECT_EQ(lastOwnNameOf(type), "application-x-executable") << type;
}

TEST(IconNames, ofASymbolicLinkAreThoseOfWhatNobodyKnows) {
    EXPECT_EQ(namesOf("public.symlink"), unknownNames);
}

TEST(IconNames, ofAVolumeAreThoseOfADisk) { EXPECT_EQ(ownNamesOf("public.volume").at(0), "drive-harddisk"); }

TEST(IconNames, ofADiskImageAreThoseOfADisk) {
    EXPECT_EQ(ownNamesOf("com.apple.disk-image"), (Strings{"application-x-cd-image", "drive-harddisk"}));
}

TEST(IconNames, areThoseOfTheFamily) {
    struct Example {
        std::string_view type;
        std::string name;
    };
    const std::vector<Example> examples{
        {"public.png", "image-x-generic"},
        {"public.mpeg-4", "video-x-generic"},
        {"public.mp3", "audio-x-generic"},
        {"public.zip-archive", "package-x-generic"},
        {"public.font", "font-x-generic"},
        {"org.oasis-open.opendocument.spreadsheet", "x-office-spreadsheet"},
        {"org.openxmlformats.presentationml.presentation", "x-office-presentation"},
        {"public.vcard", "x-office-address-book"},
        {"public.calendar-event", "x-office-calendar"},
        {"public.html", "text-html"},
        {"public.shell-script", "text-x-script"},
        {"public.c-source", "text-x-script"},
        {"com.adobe.pdf", "x-office-document"}};
    for (const auto& [type, name] : examples) EXPECT_EQ(lastOwnNameOf(type), name) << type;
}

TEST(IconNames, ofTextAreThoseOfText) {
    const Strings names = namesOf("net.daringfireball.markdown");
    EXPECT_LT(std::ranges::find(names, "text-x-generic"), std::ranges::find(names, "unknown"));
    EXPECT_EQ(namesOf("public.plain-text"),
              (Strings{"text-plain", "text-x-generic", "unknown", "application-octet-stream"}));
}

} // namespace
} // namespace quillmar::IconNames
