#pragma once

#include <vector>

namespace ot {

class Object;
class ObjectListIterator;

// A growing array of object pointers that owns none of the objects. The world
// hands out copies of its lists, and event delivery walks a copy, so copying
// must be cheap: one allocation and one block copy. The capacity starts at one
// and doubles, and a copy takes the capacity of what it copies, since equality
// looks at it.
//
//   ObjectList hits = WorldManager::getInstance().objectsOfType("Enemy");
//   for (ObjectListIterator it(&hits); !it.isDone(); it.next()) it.currentObject()->...;
class ObjectList {
 public:
  ObjectList();
  ObjectList(const ObjectList& other);
  ObjectList& operator=(const ObjectList& other);

  // Appends; -1 for a null pointer or when memory runs out. Doesn't look for
  // duplicates.
  int insert(Object* p_o);
  // Removes the first match, keeping the order of the rest; -1 if absent.
  int remove(Object* p_o);
  // Empties the list but keeps its memory.
  void clear();

  int getCount() const { return static_cast<int>(m_items.size()); }
  bool isEmpty() const { return m_items.empty(); }
  bool isFull() const { return m_items.size() == m_items.capacity(); }

  // Logs and throws std::out_of_range outside [0, count - 1].
  Object* operator[](int index) const;

  ObjectList operator+(const ObjectList& other) const;
  ObjectList& operator+=(const ObjectList& other);

  // Kept quirk: compares the first count bytes of the list's record (count,
  // capacity, array address), not the items, so two distinct lists are equal
  // only while those bytes agree. Games written against it rely on it.
  bool operator==(const ObjectList& other) const;
  bool operator!=(const ObjectList& other) const;

 private:
  friend class ObjectListIterator;

  std::vector<Object*> m_items;
};

}  // namespace ot
