#include "engine/network/EventNetwork.h"

#include <gtest/gtest.h>

#include "tests/support/HeadlessEngine.h"

namespace {

class NetworkEvents : public ot_test::HeadlessEngine {};

}  // namespace

TEST_F(NetworkEvents, LabelOutsideTheKnownOnesBecomesUndefinedAndClearsTheMessage) {
  ot::EventNetwork e(ot::DATA);
  EXPECT_EQ(ot::NETWORK_EVENT, e.getType());
  EXPECT_EQ(-1, e.getSocketIndex());
  char block[8] = {};
  e.setMessage(block);
  e.setLabel(ot::CLOSE);
  EXPECT_EQ(ot::CLOSE, e.getLabel());
  EXPECT_EQ(nullptr, e.getMessage());
  e.setLabel(7);
  EXPECT_EQ(ot::UNDEFINED, e.getLabel());
  EXPECT_TRUE(ot_test::logHas(logMessages(), "EventNetwork::setLabel(): Undefined type (7)."));
}
