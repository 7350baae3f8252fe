#include "engine/network/EventNetwork.h"

#include "tests/support/HeadlessEngine.h"

using EventNetworkTest = ot_test::HeadlessEngine;

TEST_F(EventNetworkTest, UnknownLabelBecomesUndefined) {
  ot::EventNetwork e(ot::DATA);
  EXPECT_EQ(ot::DATA, e.getLabel());
  e.setMessage(&e);  // any block will do
  e.setLabel(7);
  EXPECT_EQ(std::make_tuple(ot::NETWORK_EVENT, ot::UNDEFINED, static_cast<void*>(nullptr)),
            std::make_tuple(e.getType(), e.getLabel(), e.getMessage()));
  EXPECT_EQ("EventNetwork::setLabel(): Undefined type (7).", logMessages().back());
}
