#pragma once

namespace ot {

class Object;
class ObjectListIterator;

// A growing array of object pointers that owns none of the objects. The world
// hands out copies of its lists, and event delivery walks a copy, so copying
// must be cheap: the items live in one malloc'd block that realloc doubles.
//
//   ObjectList hits = WorldManager::getInstance().objectsOfType("Enemy");
//   for (ObjectListIterator it(&hits); !it.isDone(); it.next()) it.currentObject()->...;
class ObjectList {
 public:
  ObjectList();
  ObjectList(const ObjectList& other);
  ObjectList& operator=(const ObjectList& other);
  ~ObjectList();

  // Appends; -1 for a null pointer or when memory runs out. Doesn't look for
  // duplicates.
  int insert(Object* p_o);
  // Removes the first match, keeping the order of the rest; -1 if absent.
  int remove(Object* p_o);
  // Empties the list but keeps its memory.
  void clear();

  int getCount() const { return m_count; }
  bool isEmpty() const { return m_count == 0; }
  bool isFull() const { return m_count == m_max_count; }

  // Logs and throws std::out_of_range outside [0, count - 1].
  Object* operator[](int index) const;

  ObjectList operator+(const ObjectList& other) const;
  ObjectList& operator+=(const ObjectList& other);

  // Kept quirk: compares the list records byte by byte, not the items, so two
  // distinct lists are equal while those bytes agree; callers rely on it.
  bool operator==(const ObjectList& other) const;
  bool operator!=(const ObjectList& other) const;

 private:
  friend class ObjectListIterator;

  void copyFrom(const ObjectList& other);

  int m_count = 0;
  int m_max_count = 0;
  Object** m_p_obj = nullptr;
};

}  // namespace ot
