#include "engine/core/ObjectList.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

#include "engine/core/ObjectListIterator.h"

using ot::Object;
using ot::ObjectList;
using ot::ObjectListIterator;

namespace {

// The list never dereferences its items, so any distinct addresses will do.
Object* fake(int n) { return reinterpret_cast<Object*>(static_cast<uintptr_t>(0x1000 + 16 * n)); }

ObjectList listOf(std::initializer_list<int> items) {
  ObjectList list;
  for (int n : items) list.insert(fake(n));
  return list;
}

}  // namespace

TEST(ObjectList, GrowsKeepsOrderAndRefusesNull) {
  ObjectList list = listOf({0, 1, 2, 3, 4, 5, 6, 7, 8});
  ASSERT_EQ(9, list.getCount());
  for (int i = 0; i < 9; i++) EXPECT_EQ(fake(i), list[i]);
  EXPECT_EQ(-1, list.insert(nullptr));
  EXPECT_EQ(9, list.getCount());
  list.clear();  // keeps the array for reuse
  EXPECT_TRUE(list.isEmpty());
  EXPECT_EQ(0, list.insert(fake(9)));
  EXPECT_EQ(fake(9), list[0]);
}

TEST(ObjectList, RemoveTakesTheFirstMatchAndClosesTheGap) {
  ObjectList list = listOf({1, 2, 1, 3});
  EXPECT_EQ(0, list.remove(fake(1)));
  ASSERT_EQ(3, list.getCount());
  EXPECT_EQ(fake(2), list[0]);
  EXPECT_EQ(fake(1), list[1]);
  EXPECT_EQ(-1, list.remove(fake(7)));
}

TEST(ObjectList, CopiesAndSumsAreIndependent) {
  ObjectList a = listOf({1, 2});
  ObjectList b(a);
  b.remove(fake(1));
  ObjectList c;
  c = a;
  c = c;  // self-assignment keeps the items
  a.clear();
  EXPECT_EQ(1, b.getCount());
  EXPECT_EQ(fake(2), c[1]);
  ObjectList sum = listOf({1}) + listOf({2, 3});
  ASSERT_EQ(3, sum.getCount());
  EXPECT_EQ(fake(3), sum[2]);
  sum += sum;  // appending a list to itself doubles it
  EXPECT_EQ(6, sum.getCount());
}

TEST(ObjectList, IndexOutOfRangeThrows) {
  ObjectList list = listOf({1});
  EXPECT_THROW(list[-1], std::out_of_range);
  try {
    list[1];
    FAIL();
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ("ObjectList::operator[](): Invalid index!", e.what());
  }
}

TEST(ObjectList, EqualityComparesTheRecordsNotTheItems) {
  EXPECT_TRUE(ObjectList() == ObjectList());
  // One byte of the record is compared, the count's: equal here.
  EXPECT_TRUE(listOf({1}) == listOf({2}));
  EXPECT_TRUE(listOf({1}) != listOf({1, 2}));
  // With many items the array pointers count too, so equal items compare unequal.
  ObjectList c = listOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17});
  ObjectList d(c);
  EXPECT_FALSE(c == d);
  EXPECT_TRUE(c == c);
}

TEST(ObjectListIterator, StopsEarlyWhenTheListShrinks) {
  ObjectList list;
  ObjectListIterator empty(&list);
  EXPECT_TRUE(empty.isDone());
  EXPECT_EQ(nullptr, empty.currentObject());

  list = listOf({0, 1, 2});
  ObjectListIterator it(&list);
  it.next();
  list.remove(fake(2));
  list.remove(fake(1));
  EXPECT_TRUE(it.isDone());
  EXPECT_EQ(nullptr, it.currentObject());
  it.last();
  EXPECT_EQ(fake(0), it.currentObject());
  ObjectListIterator other(&list);
  other.next();
  it = other;  // assignment starts over
  EXPECT_EQ(fake(0), it.currentObject());
}
