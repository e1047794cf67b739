#include "platform/events.h"

#include "platform/host/environment.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <atomic>

namespace platform {
namespace {

struct PulseLog : host::Observer {
  void Debug(WideStringView) override {}
  void Pulsed(WideStringView eventName) override { names.emplace_back(eventName); }
  void Started(WideStringView, WideStringView, std::uint32_t) override {}
  void WarmReset() override {}
  std::vector<WideString> names;
};

class EventTest : public ::testing::Test {
 protected:
  host::Environment MakeEnvironment() {
    host::Environment environment;
    environment.observer = &pulses;
    return environment;
  }
  PulseLog pulses;
  host::InstalledEnvironment installed{MakeEnvironment()};
};

TEST_F(EventTest, AnEventStaysSignalledUntilItIsReset) {
  Event event(u"", false);
  EXPECT_FALSE(event.Wait(0));
  event.Set();
  EXPECT_TRUE(event.Wait(0));
  EXPECT_TRUE(event.Wait());
  event.Reset();
  EXPECT_FALSE(event.Wait(0));
}

TEST_F(EventTest, EventsOfOneNameAreOneEventWhileOneOfThemLives) {
  {
    Event first(u"Changed", false);
    Event second(u"Changed", true);  // the first one's state stays
    EXPECT_FALSE(second.Wait(0));
    first.Set();
    EXPECT_TRUE(second.Wait(0));
    Event other(u"changed", false);  // names are exact
    EXPECT_FALSE(other.Wait(0));
  }
  Event later(u"Changed", false);
  EXPECT_FALSE(later.Wait(0));
}

TEST_F(EventTest, EventsWithoutANameArePrivate) {
  Event first(u"", true);
  Event second(u"", false);
  EXPECT_FALSE(second.Wait(0));
}

TEST_F(EventTest, APulseLeavesTheEventNotSignalledAndIsObserved) {
  Event event(u"Apply", true);
  event.Pulse();
  EXPECT_FALSE(event.Wait(0));
  EXPECT_EQ(std::vector<WideString>{u"Apply"}, pulses.names);
}

TEST_F(EventTest, APulseWakesThoseWhoWait) {
  Event event(u"Apply", false);
  std::atomic<bool> woken = false;
  const auto waiter = std::make_unique<Thread>([&] { woken = event.Wait(); });
  while (!woken) event.Pulse();  // until the thread has come to wait
  EXPECT_TRUE(woken);
}

TEST_F(EventTest, SettingWakesAWaiterInAnotherThread) {
  Event ready(u"ready", false);
  Event done(u"done", false);
  const Thread thread([&] {
    ready.Wait();
    done.Set();
  });
  ready.Set();
  EXPECT_TRUE(done.Wait());
}

}  // namespace
}  // namespace platform
