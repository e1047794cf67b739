#include "values/event_names.h"

#include "tests/printing.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using Lines = std::vector<WideString>;

TEST(EventNames, HoldEachNameOnceInOrder) {
  EventNames events;
  events.Add(u"B");
  events.Add(u"A");
  events.Add(u"");
  events.Add(u"B");
  events.Add(u"b");
  EXPECT_EQ(events.Names(), (Lines{u"B", u"A", u"b"}));
  events.Clear();
  EXPECT_EQ(events.Names(), Lines());
}

}  // namespace
}  // namespace values
