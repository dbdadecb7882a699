// A short list inside a constant: at most `capacity` values, made from a braced list, so that a record can hold its own
// lists where a span would need a second constant beside it.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <type_traits>

namespace tz {

template <class T, std::size_t capacity>
class Few {
 public:
  constexpr Few() = default;
  // More than the capacity does not compile in a constant and throws elsewhere.
  constexpr Few(std::initializer_list<T> values) { copy(values.begin(), values.size()); }
  // Lists that are made as the program runs.
  template <class Range, class = std::enable_if_t<!std::is_same_v<Range, Few> &&
                                                  std::is_convertible_v<const Range&, std::span<const T>>>>
  constexpr Few(const Range& values) {  // NOLINT(google-explicit-constructor): it stands for a list
    copy(std::data(values), std::size(values));
  }

  [[nodiscard]] constexpr std::size_t size() const { return size_; }
  [[nodiscard]] constexpr bool empty() const { return size_ == 0; }
  [[nodiscard]] constexpr const T* begin() const { return values_.data(); }
  [[nodiscard]] constexpr const T* end() const { return values_.data() + size_; }
  [[nodiscard]] constexpr const T& operator[](std::size_t place) const { return values_.at(place); }
  [[nodiscard]] constexpr const T& back() const { return values_.at(size_ - 1); }

 private:
  constexpr void copy(const T* values, std::size_t size) {
    if (size > capacity) throw std::length_error("more values than a list of few can hold");
    for (; size_ < size; ++size_) values_.at(size_) = values[size_];
  }

  std::array<T, capacity> values_ = {};
  std::size_t size_ = 0;
};

}  // namespace tz
