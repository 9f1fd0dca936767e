#include "Tests/QuillmarViewer/Listener.h"
#include "Tests/QuillmarViewer/ServiceTest.h"

namespace quillmar {
namespace {

/// Pages as a document could make them that has taken its worker over: the item is the page as it stands.
class Isolation : public StagedServiceTest {
protected:
    static std::string pageOf(const std::string& head, const std::string& body) {
        return "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n" + head +
               "</head><body style=\"background:#00ff00\">" + body + "</body></html>";
    }
    static constexpr const char* name = "made.page";

    static void show(const std::string& html) {
        showFile(item(name, html));
        ASSERT_TRUE(windowAppears(name));
    }
    /// The page is all there, its address is that of \p listener nowhere visited.
    static void expectNoVisit(const std::string& html, Listener& listener) {
        show(html);
        EXPECT_TRUE(pageBecomes(green));
        EXPECT_FALSE(listener.wasVisited());
    }
};

TEST_F(Isolation, scriptsDoNotRun) {
    const std::string paint = "document.body.style.background='#ff0000'";
    show(pageOf({}, "<script>" + paint + "</script><img src=\"data:,\" onerror=\"" + paint +
                        "\"><svg onload=\"" + paint +
                        "\"></svg><noscript><p style=\"background:#0000ff\">x</p></noscript>"));
    ASSERT_TRUE(Desktop::waitUntil([] {
        const auto picture = page();
        return picture && picture->has(blue);
    }));
    EXPECT_FALSE(page()->has(red));
}

TEST_F(Isolation, remoteImagesAreNotFetched) {
    Listener listener;
    expectNoVisit(pageOf({}, "<img src=\"" + listener.url("x.png") + "\">"), listener);
}

TEST_F(Isolation, remoteImagesThatHideAreNotFetched) {
    Listener listener;
    expectNoVisit(pageOf({}, "<svg><image href=\"" + listener.url("a") + "\"/></svg>" +
                                 "<p style=\"background-image:url(" + listener.url("b") + ")\">x</p>" +
                                 "<img srcset=\"" + listener.url("c") + " 1x\"><video poster=\"" +
                                 listener.url("d") + "\"></video>"),
                  listener);
}

TEST_F(Isolation, remoteStylesAndFontsAreNotFetched) {
    Listener listener;
    expectNoVisit(pageOf("<link rel=stylesheet href=\"" + listener.url("a.css") +
                             "\"><link rel=preload as=image" + " href=\"" + listener.url("b") +
                             "\"><link rel=preconnect href=\"" + listener.url("") + "\"><style>@import url(" +
                             listener.url("c.css") + ");@font-face{font-family:f;src:url(" +
                             listener.url("f.woff") + ")}p{font-family:f}</style>",
                         "<p>words</p>"),
                  listener);
}

TEST_F(Isolation, framesAndRefreshesLeadNowhere) {
    Listener listener;
    expectNoVisit(pageOf("<meta http-equiv=refresh content=\"0;url=" + listener.url("a") + "\">",
                         "<iframe src=\"" + listener.url("b") + "\"></iframe><object data=\"" +
                             listener.url("c") + "\"></object><embed src=\"" + listener.url("d") + "\">"),
                  listener);
}

TEST_F(Isolation, filesAreNotRead) {
    const auto picture = desktop().folder().write(
        "red.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"200\" height=\"200\">"
                   "<rect width=\"200\" height=\"200\" fill=\"#ff0000\"/></svg>");
    show(pageOf({}, "<img src=\"" + uriOf(picture) + "\"><iframe src=\"" + uriOf(picture) + "\"></iframe>"));
    EXPECT_TRUE(pageBecomes(green));
    EXPECT_FALSE(page()->has(red));
}

TEST_F(Isolation, remoteImagesAreLoadedOnceTheUserSaysSo) {
    Listener listener;
    show(pageOf({}, "<img src=\"" + listener.url("x.svg") + "\">"));
    ASSERT_TRUE(pageBecomes(green));
    ASSERT_FALSE(listener.wasVisited());
    pressIn(name, "alt+l");
    ASSERT_TRUE(Desktop::waitUntil([&] { return listener.wasVisited(); }));
    listener.answerWithRedPicture();
    EXPECT_TRUE(Desktop::waitUntil([] {
        const auto picture = page();
        return picture && picture->has(red);
    }));
}

TEST_F(Isolation, whatTheUserAllowsForOnePageHoldsForThatPageAlone) {
    Listener allowed;
    Listener other;
    show(pageOf({}, "<img src=\"" + allowed.url("x.svg") + "\">"));
    ASSERT_TRUE(pageBecomes(green));
    pressIn(name, "alt+l");
    ASSERT_TRUE(Desktop::waitUntil([&] { return allowed.wasVisited(); }));
    allowed.answerWithRedPicture();
    ASSERT_TRUE(Desktop::waitUntil([] {
        const auto picture = page();
        return picture && picture->has(red);
    }));
    showFile(item("other.page", pageOf({}, "<img src=\"" + other.url("x.svg") + "\">")));
    ASSERT_TRUE(windowAppears("other.page"));
    EXPECT_TRUE(Desktop::waitUntil([] {
        const auto picture = page();
        return picture && !picture->has(red) && picture->has(green);
    }));
    EXPECT_FALSE(other.wasVisited());
}

} // namespace
} // namespace quillmar
