#include "Tests/QuillmarViewer/ServiceTest.h"

namespace quillmar {
namespace {

/// Calls that no file manager would make. Whatever they say, there is a page, and the next item is shown.
class HostileRequests : public ServiceTest {
protected:
    static constexpr const char* herbs = "herbs.txt";

    static bool pageHasInk() {
        return Desktop::waitUntil([] {
            const auto picture = page();
            return picture && picture->ink() > 0;
        });
    }
    static void expectPageAndService(const std::string& uri) {
        showFile(uri);
        EXPECT_TRUE(pageHasInk()) << uri.substr(0, 100);
        expectService();
    }
    static void expectService() {
        ASSERT_TRUE(serviceIsAlive()) << desktop().output(service());
        showFile(item(herbs, "lovage\n"));
        EXPECT_TRUE(windowAppears(herbs));
        EXPECT_TRUE(pageHasInk());
    }
};

TEST_F(HostileRequests, anEmptyAddress) { expectPageAndService(""); }
TEST_F(HostileRequests, wordsInsteadOfAnAddress) { expectPageAndService("no address at all"); }
TEST_F(HostileRequests, aSchemeAlone) { expectPageAndService("file:"); }
TEST_F(HostileRequests, invalidEscapes) { expectPageAndService("file:///%zz%"); }
TEST_F(HostileRequests, anEscapedNull) { expectPageAndService("file:///etc%00/x"); }
TEST_F(HostileRequests, anEscapedSlash) { expectPageAndService("file:///a%2Fb"); }
TEST_F(HostileRequests, bytesThatAreNoText) { expectPageAndService("file:///%FF%FE%C0%80"); }
TEST_F(HostileRequests, anotherHost) { expectPageAndService("file://elsewhere.example/share/x.txt"); }
TEST_F(HostileRequests, aWebPage) { expectPageAndService("http://127.0.0.1:1/x.html"); }
TEST_F(HostileRequests, theTrash) { expectPageAndService("trash:///"); }
TEST_F(HostileRequests, thePagesOwnScheme) { expectPageAndService("quillmar-page:///1"); }
TEST_F(HostileRequests, aResourceWithAnInvalidEscape) { expectPageAndService("resource:///%zz"); }
TEST_F(HostileRequests, aScript) { expectPageAndService("javascript:alert(1)"); }
TEST_F(HostileRequests, markup) { expectPageAndService("file:///<b>%3Cscript%3E&amp;\"'"); }
TEST_F(HostileRequests, lineBreaksAndDirections) { expectPageAndService("file:///a%0Ab%E2%80%AEtxt"); }

TEST_F(HostileRequests, anAddressOfAHundredThousandCharacters) {
    constexpr std::size_t length = 100'000;
    expectPageAndService(std::string("file:///").append(length, 'x'));
}

TEST_F(HostileRequests, anAddressOfAHundredThousandFolders) {
    std::string uri = "file://";
    for (int i = 0; i < 100'000; ++i) uri += "/x";
    expectPageAndService(uri);
}

TEST_F(HostileRequests, aHundredThousandCharactersOfNoScheme) {
    constexpr std::size_t length = 100'000;
    expectPageAndService(std::string("nothing-").append(length, 'x'));
}

TEST_F(HostileRequests, windowHandlesOfAnyContentAreIgnored) {
    constexpr std::size_t length = 100'000;
    const std::string uri = item(herbs, "lovage\n");
    for (const std::string& handle :
         {std::string(), std::string("x11:"), std::string("x11:zz"), std::string("x11:-1"),
          std::string("x11:7fffffff"), std::string("x11:ffffffffffffffffffff"), std::string("wayland:"),
          std::string("wayland:5*>fgAKke/"), std::string("%s%n"), std::string("x11:").append(length, '1')}) {
        showFile(uri, false, handle);
        EXPECT_TRUE(windowAppears(herbs)) << handle.substr(0, 30);
        EXPECT_TRUE(pageHasInk()) << handle.substr(0, 30);
        close();
        EXPECT_TRUE(windowGoes(herbs));
    }
    expectService();
}

TEST_F(HostileRequests, anActivationTokenOfAHundredThousandCharactersIsNoMatter) {
    constexpr std::size_t length = 100'000;
    EXPECT_TRUE(showFileWithToken(item("other.txt", "x"), std::string(length, '%')).succeeded);
    EXPECT_TRUE(windowAppears("other.txt"));
    expectService();
}

TEST_F(HostileRequests, argumentsOfOtherTypesAreRefused) {
    const auto reply = bus().call("org.gnome.NautilusPreviewer", objectPath, "org.gnome.NautilusPreviewer2",
                                  "ShowFile", g_variant_new("(sub)", "file:///etc", 1U, FALSE));
    EXPECT_FALSE(reply.succeeded);
    expectService();
}

TEST_F(HostileRequests, closingWhenNothingIsShownIsNoMatter) {
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(close().succeeded);
    expectService();
}

} // namespace
} // namespace quillmar
