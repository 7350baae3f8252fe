#include "engine/core/ObjectList.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

#include "engine/core/ObjectListIterator.h"

using ot::ObjectList;
using Items = std::vector<int>;

// The list never dereferences its items, so numbered addresses will do.
static ot::Object* fake(int n) { return reinterpret_cast<ot::Object*>(static_cast<uintptr_t>(16 * n + 16)); }

static ObjectList listOf(const Items& items) {
  ObjectList list;
  for (int n : items) list.insert(fake(n));
  return list;
}

static Items itemsOf(const ObjectList& list) {
  Items items;
  for (int i = 0; i < list.getCount(); i++) items.push_back(static_cast<int>(uintptr_t(list[i]) / 16 - 1));
  return items;
}

TEST(ObjectList, GrowsByDoubling) {
  ObjectList list;
  std::string full;  // after each insert: F when full
  for (int n = 1; n <= 9; n++) full += list.insert(fake(n)) == 0 && list.isFull() ? "F" : "-";
  EXPECT_EQ("FF-F---F-", full);
  EXPECT_EQ(-1, list.insert(nullptr));
  EXPECT_EQ((Items{1, 2, 3, 4, 5, 6, 7, 8, 9}), itemsOf(list));
  list.clear();
  for (full.clear(); list.getCount() < 16;) full += list.insert(fake(0)) == 0 && list.isFull() ? "F" : "-";
  EXPECT_EQ(std::string(15, '-') + "F", full);
}

TEST(ObjectList, CopiesAreIndependent) {
  ObjectList a = listOf({1, 2, 1}), b(a), c;
  c = a;
  c = c;
  EXPECT_EQ(0, b.remove(fake(1)));
  EXPECT_EQ(-1, b.remove(fake(7)));
  a.clear();
  EXPECT_EQ((std::vector<Items>{{2, 1}, {1, 2, 1}}), (std::vector<Items>{itemsOf(b), itemsOf(c)}));
  ObjectList sum = listOf({1}) + listOf({2, 3});
  sum += sum;
  EXPECT_EQ((Items{1, 2, 3, 1, 2, 3}), itemsOf(sum));
}

TEST(ObjectList, IndexOutOfRangeLogsThenThrows) {
  ObjectList empty, two = listOf({1, 2});
  testing::internal::CaptureStderr();
  EXPECT_THROW(empty[0], std::out_of_range);
  EXPECT_THROW(two[-1], std::out_of_range);
  try {
    two[2];
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ("ObjectList::operator[](): Invalid index!", e.what());
  }
  std::string err = testing::internal::GetCapturedStderr();
  for (std::string range : {"0 out of range [0, -1]", "-1 out of range [0, 1]", "2 out of range [0, 1]"})
    EXPECT_NE(err.npos, err.find("ObjectList::operator[](): Error! Index " + range + "\n")) << err;
}

TEST(ObjectListIterator, StopsEarlyWhenTheListShrinks) {
  ObjectList list = listOf({0, 1, 2});
  ot::ObjectListIterator it(&list), other(&list);
  it.next();
  list.remove(fake(2));
  list.remove(fake(1));
  EXPECT_TRUE(it.isDone());
  EXPECT_EQ(nullptr, it.currentObject());
  other.next();
  it = other;
  EXPECT_EQ(fake(0), it.currentObject());
}

TEST(ObjectList, EqualityLooksOnlyAtTheRecordsFirstCountBytes) {
  EXPECT_TRUE(listOf({1}) == listOf({2})) << "one byte: the counts agree, the items aren't looked at";
  EXPECT_TRUE(listOf({1, 2, 3, 4, 5}) == listOf({6, 7, 8, 9, 10})) << "five bytes: count and capacity";
  EXPECT_TRUE(listOf({1}) != listOf({1, 1}));
}
