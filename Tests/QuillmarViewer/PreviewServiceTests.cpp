#include "QuillmarViewer/PreviewService.h"

#include "Tests/QuillmarViewer/SessionBus.h"

#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace quillmar {
namespace {

using Strings = std::vector<std::string>;

constexpr const char* nautilusName = "org.gnome.NautilusPreviewer";
constexpr const char* nautilusPath = "/org/gnome/NautilusPreviewer";
constexpr const char* nautilusInterface = "org.gnome.NautilusPreviewer2";
constexpr BusPeer::Method showFile{nautilusName, nautilusPath, nautilusInterface, "ShowFile"};
constexpr BusPeer::Method closePreview{nautilusName, nautilusPath, nautilusInterface, "Close"};
constexpr BusPeer::Method nemoShowFile{"org.nemo.Preview", "/org/nemo/Preview", "org.nemo.Preview", "ShowFile"};
constexpr BusPeer::Method nemoClose{"org.nemo.Preview", "/org/nemo/Preview", "org.nemo.Preview", "Close"};
constexpr BusPeer::Method ping{nautilusName, nautilusPath, "org.freedesktop.DBus.Peer", "Ping"};
constexpr const char* properties = "org.freedesktop.DBus.Properties";
constexpr BusPeer::Method getProperty{nautilusName, nautilusPath, properties, "Get"};
constexpr BusPeer::Method nameOwner{"org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetNameOwner"};
constexpr BusPeer::Method requestName{"org.freedesktop.DBus", "/", "org.freedesktop.DBus", "RequestName"};
constexpr BusPeer::Method listQueuedOwners{"org.freedesktop.DBus", "/", "org.freedesktop.DBus",
                                           "ListQueuedOwners"};

constexpr const char* invalidArguments = "org.freedesktop.DBus.Error.InvalidArgs";
constexpr const char* unknownMethod = "org.freedesktop.DBus.Error.UnknownMethod";

/// Writes down what is asked for.
class RecordedRequests : public PreviewRequests {
public:
    void show(const Show& request) override {
        events.push_back("show " + request.uri);
        last = request;
    }
    void close() override { events.emplace_back("close"); }
    void warmUp() override { events.emplace_back("warm up"); }

    Strings events;
    Show last;
};

/// A previewer of ours with a connection of its own.
struct Previewer {
    explicit Previewer(const SessionBus& bus) : peer(bus) {}

    bool start() {
        return service->start(
            peer.connection(), [](void* count) { ++*static_cast<int*>(count); }, &timesLost, error);
    }

    BusPeer peer;
    RecordedRequests requests;
    std::optional<PreviewService> service{std::in_place, requests};
    std::string error;
    int timesLost = 0;
};

/// The signals of the previewer, as the file manager gets them.
class Signals {
public:
    explicit Signals(const BusPeer& fileManager) : connection_(fileManager.connection()) {
        subscription_ =
            g_dbus_connection_signal_subscribe(connection_, nullptr, nullptr, nullptr, nautilusPath, nullptr,
                                               G_DBUS_SIGNAL_FLAGS_NONE, received, this, nullptr);
    }
    ~Signals() { g_dbus_connection_signal_unsubscribe(connection_, subscription_); }
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;

    Strings all;

private:
    static void received(GDBusConnection*, const char*, const char*, const char*, const char* signal,
                         GVariant* arguments, gpointer self) {
        char* text = g_variant_print(arguments, FALSE);
        static_cast<Signals*>(self)->all.push_back(std::string(signal).append(" ").append(text));
        g_free(text);
    }

    GDBusConnection* connection_;
    guint subscription_;
};

struct PreviewServiceTest : testing::Test {
    void SetUp() override { ASSERT_TRUE(previewer.start()) << previewer.error; }

    std::string propertyValue(const std::string& name) const {
        return fileManager.call(getProperty,
                                std::string("('org.gnome.NautilusPreviewer2', '").append(name).append("')"));
    }
    std::string owner(const std::string& name) const {
        return fileManager.call(nameOwner, std::string("('").append(name).append("',)"));
    }
    /// \p peer, as the bus answers.
    static std::string asReply(const BusPeer& peer) {
        return std::string("('").append(peer.name()).append("',)");
    }
    /// Until all that the previewer has said so far has come: the bus keeps the order.
    void settle() const { propertyValue("Visible"); }

    /// A ping, answered by GDBus's own thread. All calls before it have come, and the main loop, which takes
    /// them, has not run.
    void pingInStandstill() const {
        GVariant* reply = g_dbus_connection_call_sync(fileManager.connection(), ping.busName, ping.path,
                                                      ping.interface, ping.member, nullptr, nullptr,
                                                      G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
        ASSERT_NE(reply, nullptr);
        g_variant_unref(reply);
    }

    SessionBus bus;
    Previewer previewer{bus};
    BusPeer fileManager{bus};
    const RecordedRequests& requests = previewer.requests;
    PreviewService& service = *previewer.service;
};

TEST_F(PreviewServiceTest, ownsTheNamesOfBothFileManagers) {
    EXPECT_EQ(owner("org.gnome.NautilusPreviewer"), asReply(previewer.peer));
    EXPECT_EQ(owner("org.nemo.Preview"), asReply(previewer.peer));
}

TEST_F(PreviewServiceTest, ownsTheNamesWhenStartReturns) {
    const BusPeer::Method& method = nameOwner;
    GVariant* reply = g_dbus_connection_call_sync(
        fileManager.connection(), method.busName, method.path, method.interface, method.member,
        g_variant_new("(s)", nautilusName), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    EXPECT_NE(reply, nullptr);
    if (reply != nullptr) g_variant_unref(reply);
}

TEST_F(PreviewServiceTest, showsAFile) {
    EXPECT_EQ(fileManager.call(showFile, "('file:///a%20b.md', 'x11:400004', true)"), "()");
    EXPECT_EQ(requests.events, Strings{"show file:///a%20b.md"});
    EXPECT_EQ(requests.last.parentHandle, "x11:400004");
    EXPECT_TRUE(requests.last.closeIfShown);
    EXPECT_EQ(requests.last.activationToken, "");
}

TEST_F(PreviewServiceTest, showsAFileThatDoesNotCloseIt) {
    fileManager.call(showFile, "('file:///a', 'wayland:5*>fgAKke/', false)");
    EXPECT_EQ(requests.last.parentHandle, "wayland:5*>fgAKke/");
    EXPECT_FALSE(requests.last.closeIfShown);
}

TEST_F(PreviewServiceTest, takesAFourthArgumentAsTheActivationToken) {
    EXPECT_EQ(fileManager.call(showFile, "('file:///a', 'x11:0', true, 'token-1')"), "()");
    EXPECT_EQ(requests.events, Strings{"show file:///a"});
    EXPECT_EQ(requests.last.parentHandle, "x11:0");
    EXPECT_TRUE(requests.last.closeIfShown);
    EXPECT_EQ(requests.last.activationToken, "token-1");
}

TEST_F(PreviewServiceTest, forgetsTheTokenOfTheCallBefore) {
    fileManager.call(showFile, "('file:///a', 'x11:0', true, 'token-1')");
    fileManager.call(showFile, "('file:///b', 'x11:0', true)");
    EXPECT_EQ(requests.last.activationToken, "");
}

TEST_F(PreviewServiceTest, takesATokenTooLongForWaylandForNone) {
    const auto tokenOf = [this](std::size_t length) {
        fileManager.call(
            showFile, std::string("('file:///a', '', true, '").append(std::string(length, 't')).append("')"));
        return requests.last.activationToken;
    };
    EXPECT_EQ(tokenOf(1'024), std::string(1'024, 't'));
    EXPECT_EQ(tokenOf(1'025), "");
}

TEST_F(PreviewServiceTest, givesEachOfSeveralWaitingCallsItsOwnToken) {
    Strings tokens;
    struct Tokens : PreviewRequests {
        explicit Tokens(Strings& list) : all(list) {}
        void show(const Show& request) override { all.push_back(request.activationToken); }
        void close() override {}
        void warmUp() override {}
        Strings& all;
    } tokenRequests(tokens);
    previewer.service.reset();
    previewer.service.emplace(tokenRequests);
    ASSERT_TRUE(previewer.start());
    fileManager.send(showFile, "('file:///a', '', true, 'one')");
    fileManager.send(showFile, "('file:///b', '', true)");
    fileManager.send(showFile, "('file:///c', '', true, 'three')");
    EXPECT_TRUE(waitUntil([&] { return tokens.size() == 3; }));
    EXPECT_EQ(tokens, (Strings{"one", "", "three"}));
}

TEST_F(PreviewServiceTest, keepsTheOrderOfCalls) {
    Strings expected;
    for (int i = 0; i < 50; ++i) {
        const std::string uri = std::string("file:///").append(std::to_string(i));
        fileManager.send(
            showFile, std::string("('").append(uri).append(i % 2 == 0 ? "', '', true)" : "', '', true, 't')"));
        expected.push_back(std::string("show ").append(uri));
        if (i % 5 != 0) continue;
        fileManager.send(closePreview, "()");
        expected.emplace_back("close");
    }
    EXPECT_TRUE(waitUntil([&] { return requests.events.size() >= expected.size(); }));
    EXPECT_EQ(requests.events, expected);
}

TEST_F(PreviewServiceTest, passesOnWhateverAFileManagerWrites) {
    const std::string large(100'000, 'x');
    fileManager.call(showFile,
                     std::string("('../\\u0001\\n\"<b>\\u202e', '").append(large).append("', true, '%n')"));
    EXPECT_EQ(requests.last.uri, "../\x01\n\"<b>\xE2\x80\xAE");
    EXPECT_EQ(requests.last.parentHandle, large);
    EXPECT_EQ(requests.last.activationToken, "%n");
}

TEST_F(PreviewServiceTest, closes) {
    EXPECT_EQ(fileManager.call(closePreview), "()");
    EXPECT_EQ(requests.events, Strings{"close"});
}

TEST_F(PreviewServiceTest, refusesArgumentsOfOtherTypes) {
    for (const char* arguments :
         {"()", "('file:///a',)", "('file:///a', 'x11:0')", "('file:///a', 'x11:0', 'true')",
          "(1, 'x11:0', true)", "('file:///a', 'x11:0', true, 1)",
          "('file:///a', 'x11:0', true, 'token', 'more')", "('file:///a', 'x11:0', true, <'token'>)"})
        EXPECT_EQ(fileManager.call(showFile, arguments), invalidArguments) << arguments;
    EXPECT_EQ(fileManager.call(closePreview, "(true,)"), invalidArguments);
    EXPECT_EQ(requests.events, Strings());
}

TEST_F(PreviewServiceTest, refusesMethodsThatItDoesNotHave) {
    EXPECT_EQ(fileManager.call({nautilusName, nautilusPath, nautilusInterface, "Open"}, "('file:///a',)"),
              unknownMethod);
    EXPECT_EQ(requests.events, Strings());
}

TEST_F(PreviewServiceTest, refusesAFourthArgumentAtAnotherPath) {
    EXPECT_EQ(fileManager.call({nautilusName, "/elsewhere", nautilusInterface, "ShowFile"},
                               "('file:///a', 'x11:0', true, 'token')"),
              unknownMethod);
    EXPECT_EQ(requests.events, Strings());
}

TEST_F(PreviewServiceTest, isNotVisibleAtFirst) {
    EXPECT_EQ(propertyValue("Visible"), "(<false>,)");
    EXPECT_EQ(propertyValue("ParentHandle"), "(<''>,)");
}

TEST_F(PreviewServiceTest, tellsWhetherItIsVisibleAndForWhichWindow) {
    service.setVisible(true);
    service.setParentHandle("x11:400004");
    EXPECT_EQ(propertyValue("Visible"), "(<true>,)");
    EXPECT_EQ(propertyValue("ParentHandle"), "(<'x11:400004'>,)");
}

TEST_F(PreviewServiceTest, hasPropertiesThatCannotBeSet) {
    EXPECT_EQ(fileManager.call({nautilusName, nautilusPath, properties, "Set"},
                               "('org.gnome.NautilusPreviewer2', 'Visible', <true>)"),
              invalidArguments);
    EXPECT_EQ(propertyValue("Visible"), "(<false>,)");
}

TEST_F(PreviewServiceTest, announcesEachChangeOfItsVisibilityOnce) {
    const Signals signals(fileManager);
    settle();
    service.setVisible(false);
    service.setVisible(true);
    service.setVisible(true);
    service.setVisible(false);
    settle();
    EXPECT_EQ(signals.all,
              (Strings{"PropertiesChanged ('org.gnome.NautilusPreviewer2', {'Visible': <true>}, [])",
                       "PropertiesChanged ('org.gnome.NautilusPreviewer2', {'Visible': <false>}, [])"}));
}

TEST_F(PreviewServiceTest, announcesEachChangeOfItsParentOnce) {
    const Signals signals(fileManager);
    settle();
    service.setParentHandle("");
    service.setParentHandle("x11:1");
    service.setParentHandle("x11:1");
    settle();
    EXPECT_EQ(signals.all, Strings{"PropertiesChanged ('org.gnome.NautilusPreviewer2', "
                                   "{'ParentHandle': <'x11:1'>}, [])"});
}

TEST_F(PreviewServiceTest, asksTheFileManagerToMoveItsSelection) {
    const Signals signals(fileManager);
    settle();
    using enum PreviewService::Direction;
    for (const auto direction : {up, down, left, right}) service.moveSelection(direction);
    settle();
    EXPECT_EQ(signals.all, (Strings{"SelectionEvent (2,)", "SelectionEvent (3,)", "SelectionEvent (4,)",
                                    "SelectionEvent (5,)"}));
}

TEST_F(PreviewServiceTest, movesNoSelectionOfOneFileManagerForTheOther) {
    const Signals signals(fileManager);
    fileManager.call(nemoShowFile, "('file:///a', 1, true)");
    service.moveSelection(PreviewService::Direction::right);
    fileManager.call(showFile, "('file:///a', 'x11:0', true)");
    service.moveSelection(PreviewService::Direction::down);
    settle();
    EXPECT_EQ(signals.all, Strings{"SelectionEvent (3,)"});
}

TEST_F(PreviewServiceTest, answersAPingAndWarmsUp) {
    EXPECT_EQ(fileManager.call(ping), "()");
    EXPECT_TRUE(waitUntil([&] { return !requests.events.empty(); }));
    EXPECT_EQ(requests.events, Strings{"warm up"});
}

TEST_F(PreviewServiceTest, warmsUpOnceForPingsThatComeTogether) {
    std::string lastAnswer;
    for (int i = 0; i < 9; ++i) fileManager.send(ping, "()");
    fileManager.send(ping, "()", &lastAnswer);
    pingInStandstill();
    settle();
    EXPECT_EQ(requests.events, Strings{"warm up"});
    EXPECT_EQ(lastAnswer, "()");
}

TEST_F(PreviewServiceTest, doesNotWarmUpForAnythingElse) {
    fileManager.call({nautilusName, nautilusPath, "org.freedesktop.DBus.Peer", "GetMachineId"});
    fileManager.call({nautilusName, nautilusPath, nautilusInterface, "Ping"});
    settle();
    EXPECT_EQ(requests.events, Strings());
}

TEST_F(PreviewServiceTest, showsAFileForNemo) {
    EXPECT_EQ(fileManager.call(nemoShowFile, "('file:///a', 67108868, true)"), "()");
    EXPECT_EQ(requests.events, Strings{"show file:///a"});
    EXPECT_EQ(requests.last.parentHandle, "x11:4000004");
    EXPECT_TRUE(requests.last.closeIfShown);
    EXPECT_EQ(requests.last.activationToken, "");
}

TEST_F(PreviewServiceTest, takesANegativeWindowForALargeNumber) {
    fileManager.call(nemoShowFile, "('file:///a', -1, false)");
    EXPECT_EQ(requests.last.parentHandle, "x11:ffffffff");
    EXPECT_FALSE(requests.last.closeIfShown);
}

TEST_F(PreviewServiceTest, closesForNemo) {
    EXPECT_EQ(fileManager.call(nemoClose), "()");
    EXPECT_EQ(requests.events, Strings{"close"});
}

TEST_F(PreviewServiceTest, refusesArgumentsOfOtherTypesFromNemo) {
    EXPECT_EQ(fileManager.call(nemoShowFile, "('file:///a', 'x11:1', true)"), invalidArguments);
    EXPECT_EQ(fileManager.call(nemoShowFile, "('file:///a', 1, true, 'token')"), invalidArguments);
    EXPECT_EQ(requests.events, Strings());
}

TEST_F(PreviewServiceTest, tellsASecondInstanceThatThereIsOne) {
    Previewer second(bus);
    ASSERT_TRUE(second.start()) << second.error;
    EXPECT_TRUE(waitUntil([&] { return second.timesLost > 0; }));
    EXPECT_EQ(second.timesLost, 1);
    EXPECT_EQ(previewer.timesLost, 0);
    EXPECT_EQ(fileManager.call(listQueuedOwners, "('org.gnome.NautilusPreviewer',)"),
              std::string("(['").append(previewer.peer.name()).append("'],)"));
}

TEST_F(PreviewServiceTest, isStillThereWhenTheSecondInstanceHasLeft) {
    {
        Previewer second(bus);
        second.start();
    }
    EXPECT_EQ(fileManager.call(closePreview), "()");
    EXPECT_EQ(requests.events, Strings{"close"});
}

TEST_F(PreviewServiceTest, givesTheRoleBackWhenItGoes) {
    previewer.service.reset();
    Previewer next(bus);
    ASSERT_TRUE(next.start()) << next.error;
    EXPECT_TRUE(waitUntil([&] { return owner(nautilusName) == asReply(next.peer); }));
    EXPECT_EQ(fileManager.call(closePreview), "()");
    EXPECT_EQ(next.requests.events, Strings{"close"});
    EXPECT_EQ(next.timesLost, 0);
}

TEST_F(PreviewServiceTest, hearsOfNothingWhenItHasGone) {
    std::string answer;
    fileManager.send(showFile, "('file:///a', '', true, 'token')", &answer);
    pingInStandstill();
    previewer.service.reset();
    EXPECT_TRUE(waitUntil([&] { return !answer.empty(); }));
    EXPECT_EQ(answer, unknownMethod);
    EXPECT_EQ(requests.events, Strings());
}

TEST_F(PreviewServiceTest, saysWhyWhenItsPlaceIsTaken) {
    RecordedRequests others;
    PreviewService other(others);
    std::string error;
    EXPECT_FALSE(other.start(
        previewer.peer.connection(), [](void*) {}, nullptr, error));
    EXPECT_NE(error.find(nautilusPath), error.npos) << error;
    EXPECT_EQ(fileManager.call(closePreview), "()");
    EXPECT_EQ(requests.events, Strings{"close"});
    EXPECT_EQ(others.events, Strings());
}

TEST_F(PreviewServiceTest, isToldWhenTheBusGoes) {
    previewer.peer.close();
    EXPECT_TRUE(waitUntil([&] { return previewer.timesLost > 0; }));
    service.setVisible(true);
    service.moveSelection(PreviewService::Direction::up);
    EXPECT_EQ(previewer.timesLost, 1);
}

TEST(PreviewService, waitsForThePreviewerThatRunsAlready) {
    const SessionBus bus;
    const BusPeer fileManager(bus);
    std::optional<BusPeer> other(std::in_place, bus);
    // Even one that lets itself be replaced (1).
    ASSERT_EQ(other->call(requestName, "('org.gnome.NautilusPreviewer', uint32 1)"), "(uint32 1,)");
    Previewer previewer(bus);
    ASSERT_TRUE(previewer.start()) << previewer.error;
    EXPECT_EQ(fileManager.call(nameOwner, "('org.gnome.NautilusPreviewer',)"),
              std::string("('").append(other->name()).append("',)"));
    other.reset();
    EXPECT_TRUE(waitUntil([&] { return fileManager.call(closePreview) == "()"; }));
    EXPECT_EQ(previewer.requests.events, Strings{"close"});
    EXPECT_EQ(previewer.timesLost, 0);
}

TEST(PreviewService, letsNobodyReplaceIt) {
    const SessionBus bus;
    Previewer previewer(bus);
    ASSERT_TRUE(previewer.start()) << previewer.error;
    const BusPeer other(bus);
    // Replacing (2), without waiting (4): the name exists (3).
    EXPECT_EQ(other.call(requestName, "('org.gnome.NautilusPreviewer', uint32 6)"), "(uint32 3,)");
    EXPECT_EQ(previewer.timesLost, 0);
}

TEST(PreviewService, takesChangesBeforeItHasStarted) {
    const SessionBus bus;
    const BusPeer fileManager(bus);
    Previewer previewer(bus);
    previewer.service->setVisible(true);
    previewer.service->setParentHandle("x11:1");
    previewer.service->moveSelection(PreviewService::Direction::up);
    ASSERT_TRUE(previewer.start()) << previewer.error;
    EXPECT_EQ(fileManager.call(getProperty, "('org.gnome.NautilusPreviewer2', 'Visible')"), "(<true>,)");
}

} // namespace
} // namespace quillmar
