#include "game/Shop.h"

#include <string>
#include <tuple>
#include <vector>

#include "game/game.h"
#include "tests/support/GameWorld.h"

namespace {

namespace K = ot::Keyboard;

class ShopTest : public ot_test::GameWorld {
 protected:
  void SetUp() override {
    GameWorld::SetUp();
    p_hero = makeHero();
    p_shop = p_hero->getShop();
  }

  void setGold(int gold) {
    p_hero->spendGold(p_hero->getGold());
    if (gold > 0) p_hero->addKillReward(gold);
  }

  Hero* p_hero = nullptr;
  Shop* p_shop = nullptr;
};

TEST_F(ShopTest, UpgradePricesGrowByHalfRoundedDown) {
  setGold(100000);
  std::vector<int> hp, melee, ranged;
  for (int i = 0; i < 5; i++) {
    hp.push_back(p_shop->getPriceHp());
    melee.push_back(p_shop->getPriceMelee());
    ranged.push_back(p_shop->getPriceRanged());
    p_shop->buy(2);
    p_shop->buy(3);
    p_shop->buy(4);
  }
  EXPECT_EQ((std::vector<int>{40, 60, 90, 135, 202}), hp);
  EXPECT_EQ((std::vector<int>{50, 75, 112, 168, 252}), melee);
  EXPECT_EQ(melee, ranged);
  EXPECT_EQ(100000 - (40 + 60 + 90 + 135 + 202) - 2 * (50 + 75 + 112 + 168 + 252), p_hero->getGold());
  EXPECT_EQ(std::make_tuple(35, 35, 7, 6),
            std::make_tuple(p_hero->getMaxHp(), p_hero->getHp(), p_hero->getMeleeDamage(),
                            p_hero->getRangedDamage()));
}

struct Purchase {
  int item, gold, damage;  // damage taken before buying
  std::string message;
  int gold_after;
};

void PrintTo(const Purchase& p, std::ostream* os) {
  *os << "item " << p.item << " with " << p.gold << " gold";
}

class ShopPurchase : public ShopTest, public ::testing::WithParamInterface<Purchase> {};

TEST_P(ShopPurchase, SpendsExactlyThePriceOrRefusesWithItsMessage) {
  const Purchase& purchase = GetParam();
  p_hero->takeDamage(purchase.damage);
  setGold(purchase.gold);
  p_shop->buy(purchase.item);
  EXPECT_EQ(std::make_pair(purchase.message, purchase.gold_after),
            std::make_pair(p_shop->getMessage(), p_hero->getGold()));
}

INSTANTIATE_TEST_SUITE_P(
    Items, ShopPurchase,
    ::testing::Values(Purchase{1, 0, 0, "Already at full health.", 0},
                      Purchase{1, 50, 0, "Already at full health.", 50},
                      Purchase{1, 19, 3, "Not enough gold.", 19}, Purchase{1, 20, 3, "Healed!", 0},
                      Purchase{2, 39, 0, "Not enough gold.", 39}, Purchase{2, 40, 0, "+5 Max HP!", 0},
                      Purchase{3, 49, 0, "Not enough gold.", 49},
                      Purchase{3, 50, 0, "Sword sharpened: +1 melee damage!", 0},
                      Purchase{4, 60, 0, "Arrows reinforced: +1 ranged damage!", 10},
                      Purchase{5, 99, 0, "Not enough gold.", 99},
                      Purchase{5, 100, 0, "Key acquired! Locked doors (+) are now open.", 0},
                      Purchase{0, 100, 0, "", 100}, Purchase{6, 100, 0, "", 100}));

TEST_F(ShopTest, HealingRestoresEveryHitPoint) {
  p_hero->takeDamage(6);
  setGold(20);
  p_shop->buy(1);
  EXPECT_EQ(10, p_hero->getHp());
}

TEST_F(ShopTest, TheKeyIsSoldOnce) {
  setGold(250);
  p_shop->buy(5);
  EXPECT_TRUE(p_shop->hasKey() && getLevel()->doorsOpen());
  p_shop->buy(5);
  EXPECT_EQ(std::make_pair(std::string("You already have the key."), 150),
            std::make_pair(p_shop->getMessage(), p_hero->getGold()));
  getLevel()->setFloor(1);
  EXPECT_TRUE(getLevel()->isWalkable(41, 10));
}

TEST_F(ShopTest, AMessageFadesSixtyStepsAfterItWasSetOpenOrNot) {
  p_hero->setGridPos(33, 6);
  key(K::E, ot::KEY_PRESSED);
  ASSERT_TRUE(p_shop->isOpen());
  EXPECT_EQ("Welcome! Press a number to buy, E to leave.", p_shop->getMessage());
  step(30);
  key(K::E, ot::KEY_PRESSED);
  EXPECT_FALSE(p_shop->isOpen());
  step(29);
  EXPECT_EQ("Welcome! Press a number to buy, E to leave.", p_shop->getMessage());
  step(1);
  EXPECT_EQ("", p_shop->getMessage());
}

TEST_F(ShopTest, NumberKeysBuyOnlyWhileOpen) {
  setGold(500);
  // Key, action, whether the shop is open, and the gold after.
  for (auto [code, action, open, gold] : {std::make_tuple(K::NUM2, ot::KEY_PRESSED, false, 500),
                                          {K::NUM2, ot::KEY_DOWN, true, 500},
                                          {K::NUM6, ot::KEY_PRESSED, true, 500},
                                          {K::NUM2, ot::KEY_PRESSED, true, 460},
                                          {K::NUM5, ot::KEY_PRESSED, true, 360},
                                          {K::NUM3, ot::KEY_PRESSED, false, 360}}) {
    open ? p_shop->open() : p_shop->close();
    key(code, action);
    EXPECT_EQ(gold, p_hero->getGold()) << code;
  }
}

}  // namespace
