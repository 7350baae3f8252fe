#include "game/Shop.h"

#include <string>
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
  EXPECT_EQ(35, p_hero->getMaxHp());
  EXPECT_EQ(35, p_hero->getHp());
  EXPECT_EQ(7, p_hero->getMeleeDamage());
  EXPECT_EQ(6, p_hero->getRangedDamage());
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
  EXPECT_EQ(purchase.message, p_shop->getMessage());
  EXPECT_EQ(purchase.gold_after, p_hero->getGold());
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
  EXPECT_TRUE(p_shop->hasKey());
  EXPECT_TRUE(getLevel()->doorsOpen());
  p_shop->buy(5);
  EXPECT_EQ("You already have the key.", p_shop->getMessage());
  EXPECT_EQ(150, p_hero->getGold());
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
  key(K::NUM2, ot::KEY_PRESSED);
  EXPECT_EQ(500, p_hero->getGold());
  p_shop->open();
  key(K::NUM2, ot::KEY_DOWN);
  key(K::NUM6, ot::KEY_PRESSED);
  EXPECT_EQ(500, p_hero->getGold());
  key(K::NUM2, ot::KEY_PRESSED);
  EXPECT_EQ(460, p_hero->getGold());
  key(K::NUM5, ot::KEY_PRESSED);
  EXPECT_EQ(360, p_hero->getGold());
  p_shop->close();
  key(K::NUM3, ot::KEY_PRESSED);
  EXPECT_EQ(360, p_hero->getGold());
}

}  // namespace
