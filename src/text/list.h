// A dynamic array, indexed from 0 to its upper bound, that may never have been
// sized. An index outside is a subscript failure.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "text/failure.h"

namespace quillary {

template <class Value>
class List {
 public:
  /// Sizes the list anew, with entries 0 to `upper`, none of them set.
  void Size(std::int32_t upper) {
    sized_ = true;
    last_set_ = -1;
    entries_.assign(upper < 0 ? 0 : static_cast<std::size_t>(upper) + 1, Value{});
  }

  /// Raises the upper bound and keeps the entries.
  void Grow(std::int32_t upper) {
    sized_ = true;
    if (upper > static_cast<std::int32_t>(entries_.size()) - 1) {
      entries_.resize(static_cast<std::size_t>(upper) + 1);
    }
  }

  /// One entry more at the end; throws Failure (subscript) if the list was never sized.
  void Push(Value value) {
    Grow(upper() + 1);
    Set(upper(), std::move(value));
  }

  /// One entry less. The only entry cannot go: throws Failure (subscript).
  void Pop() {
    if (entries_.size() < 2) throw Failure(Failure::Kind::Subscript);
    entries_.pop_back();
    last_set_ = std::min(last_set_, upper());
  }

  /// Sets the upper bound and keeps the entries up to it.
  void Resize(std::int32_t upper) {
    if (upper < 0) throw Failure(Failure::Kind::Subscript);
    sized_ = true;
    entries_.resize(static_cast<std::size_t>(upper) + 1);
    last_set_ = std::min(last_set_, upper);
  }

  /// Back to the state of never having been sized.
  void Erase() { *this = List(); }

  bool sized() const { return sized_; }
  /// The upper bound; throws Failure (subscript) if the list was never sized.
  std::int32_t upper() const {
    if (!sized_) throw Failure(Failure::Kind::Subscript);
    return static_cast<std::int32_t>(entries_.size()) - 1;
  }
  /// The highest index that was ever set, -1 if there is none.
  std::int32_t last_set() const { return last_set_; }

  bool has(std::int32_t index) const {
    return index >= 0 && static_cast<std::size_t>(index) < entries_.size();
  }
  const Value& operator[](std::int32_t index) const {
    if (!has(index)) throw Failure(Failure::Kind::Subscript);
    return entries_[static_cast<std::size_t>(index)];
  }
  /// The same to be changed; counts as set.
  Value& At(std::int32_t index) {
    if (!has(index)) throw Failure(Failure::Kind::Subscript);
    last_set_ = std::max(last_set_, index);
    return entries_[static_cast<std::size_t>(index)];
  }
  Value& Top() { return At(upper()); }
  const Value& Top() const { return (*this)[upper()]; }

  void Set(std::int32_t index, Value value) {
    if (!has(index)) throw Failure(Failure::Kind::Subscript);
    entries_[static_cast<std::size_t>(index)] = std::move(value);
    if (index > last_set_) last_set_ = index;
  }

 private:
  std::vector<Value> entries_;
  std::int32_t last_set_ = -1;
  bool sized_ = false;
};

}  // namespace quillary
