// A list numbered from 1, as every list of the document is: element 1 is the
// first entry and last() is the count. The unused element 0 of the stored
// layout is not kept in memory; an index outside 1..last() is a caller's bug.
#pragma once

#include <cassert>
#include <cstddef>
#include <utility>
#include <vector>

namespace vt {

template <class T>
class OneBased {
 public:
  using value_type = T;
  using iterator = typename std::vector<T>::iterator;
  using const_iterator = typename std::vector<T>::const_iterator;

  OneBased() = default;
  explicit OneBased(int n) : v_(n > 0 ? static_cast<std::size_t>(n) : 0) {}
  OneBased(int n, const T& value) : v_(n > 0 ? static_cast<std::size_t>(n) : 0, value) {}

  // The upper bound: the count of entries.
  int last() const { return static_cast<int>(v_.size()); }
  bool empty() const { return v_.empty(); }
  bool has(int i) const { return i >= 1 && i <= last(); }

  T& operator[](int i) {
    assert(has(i));
    return v_[static_cast<std::size_t>(i - 1)];
  }
  const T& operator[](int i) const {
    assert(has(i));
    return v_[static_cast<std::size_t>(i - 1)];
  }

  void resize(int n) { v_.resize(n > 0 ? static_cast<std::size_t>(n) : 0); }
  void resize(int n, const T& value) { v_.resize(n > 0 ? static_cast<std::size_t>(n) : 0, value); }
  void clear() { v_.clear(); }
  void reserve(int n) { v_.reserve(static_cast<std::size_t>(n)); }
  void push_back(T value) { v_.push_back(std::move(value)); }
  void pop_back() { v_.pop_back(); }
  // Inserts before position i (1..last()+1); the entries from i move up by one.
  void insert(int i, T value) {
    assert(i >= 1 && i <= last() + 1);
    v_.insert(v_.begin() + (i - 1), std::move(value));
  }
  // Removes entry i; the later entries move down by one.
  void erase(int i) {
    assert(has(i));
    v_.erase(v_.begin() + (i - 1));
  }
  // Removes entries i..last().
  void truncateFrom(int i) {
    if (i <= last()) v_.erase(v_.begin() + (i > 1 ? i - 1 : 0), v_.end());
  }

  T& front() { return v_.front(); }
  T& back() { return v_.back(); }
  const T& back() const { return v_.back(); }

  iterator begin() { return v_.begin(); }
  iterator end() { return v_.end(); }
  const_iterator begin() const { return v_.begin(); }
  const_iterator end() const { return v_.end(); }

  std::vector<T>& raw() { return v_; }
  const std::vector<T>& raw() const { return v_; }

  bool operator==(const OneBased&) const = default;

 private:
  std::vector<T> v_;
};

}  // namespace vt
