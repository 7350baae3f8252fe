#include "engine/core/ObjectList.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "engine/core/LogManager.h"

namespace ot {

ObjectList::ObjectList() {
  m_p_obj = static_cast<Object**>(malloc(sizeof(Object*)));
  m_max_count = m_p_obj ? 1 : 0;
}

ObjectList::ObjectList(const ObjectList& other) { copyFrom(other); }

ObjectList& ObjectList::operator=(const ObjectList& other) {
  if (this == &other) return *this;
  free(m_p_obj);
  copyFrom(other);
  return *this;
}

ObjectList::~ObjectList() { free(m_p_obj); }

void ObjectList::copyFrom(const ObjectList& other) {
  m_p_obj = nullptr;
  m_count = 0;
  m_max_count = 0;
  if (other.m_max_count > 0) {
    m_p_obj = static_cast<Object**>(malloc(sizeof(Object*) * other.m_max_count));
  }
  if (!m_p_obj) return;
  if (other.m_count > 0) memcpy(m_p_obj, other.m_p_obj, sizeof(Object*) * other.m_count);
  m_count = other.m_count;
  m_max_count = other.m_max_count;
}

int ObjectList::insert(Object* p_o) {
  if (!p_o) return -1;
  if (isFull()) {
    // A capacity of 0 (after a failed allocation) stays 0 and can't grow.
    int bigger = m_max_count * 2;
    if (bigger == 0) return -1;
    auto p_grown = static_cast<Object**>(realloc(m_p_obj, sizeof(Object*) * bigger));
    if (!p_grown) return -1;
    m_p_obj = p_grown;
    m_max_count = bigger;
  }
  m_p_obj[m_count++] = p_o;
  return 0;
}

int ObjectList::remove(Object* p_o) {
  for (int i = 0; i < m_count; i++) {
    if (m_p_obj[i] == p_o) {
      std::copy(m_p_obj + i + 1, m_p_obj + m_count, m_p_obj + i);
      m_count--;
      return 0;
    }
  }
  return -1;
}

void ObjectList::clear() { m_count = 0; }

Object* ObjectList::operator[](int index) const {
  if (index < 0 || index >= m_count) {
    LogManager::getInstance().writeLog("ObjectList::operator[](): Error! Index %d out of range [0, %d]",
                                       index, m_count - 1);
    throw std::out_of_range("ObjectList::operator[](): Invalid index!");
  }
  return m_p_obj[index];
}

ObjectList ObjectList::operator+(const ObjectList& other) const {
  ObjectList sum(*this);
  sum += other;
  return sum;
}

ObjectList& ObjectList::operator+=(const ObjectList& other) {
  // A copy guards against appending a list to itself while it grows.
  ObjectList items(other);
  for (int i = 0; i < items.m_count; i++) insert(items.m_p_obj[i]);
  return *this;
}

bool ObjectList::operator==(const ObjectList& other) const {
  if (m_count != other.m_count) return false;
  // The comparison covers the first m_count bytes of the records themselves.
  // It stops at the end of the record, as reading past it would be undefined.
  size_t bytes = std::min(static_cast<size_t>(m_count), sizeof(ObjectList));
  return memcmp(this, &other, bytes) == 0;
}

bool ObjectList::operator!=(const ObjectList& other) const { return !(*this == other); }

}  // namespace ot
