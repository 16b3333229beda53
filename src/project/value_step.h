#pragma once

#include "base/utf8.h"
#include "project/undo_step.h"

#include <cmath>
#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace quillery {

/// A value of the document that a control edits, wherever it lies. Setting it runs its rules and
/// announces the change.
template <typename T> struct ValueBinding {
  std::function<T()> get;
  std::function<void(const T&)> set;
};

/// Equal, or both no number: that differs from itself, but nobody has changed it.
template <typename T> bool isSame(const T& a, const T& b) {
  if constexpr (std::is_floating_point_v<T>)
    if (std::isnan(a) && std::isnan(b)) return true;
  return a == b;
}

/// A change of one value.
template <typename T> class ValueStep : public UndoStep {
public:
  /// `value` is the one before the change.
  ValueStep(ValueBinding<T> binding, T value)
      : binding_(std::move(binding)), value_(std::move(value)) {}

  void swap(ProjectManager&) override {
    T replaced = binding_.get();
    binding_.set(value_);
    value_ = std::move(replaced);
  }
  bool changesAnything(const ProjectManager&) const override {
    return !isSame(value_, binding_.get());
  }
  std::size_t size(const ProjectManager&) const override {
    // The values of undo and redo, which may be texts, and what the binding has captured.
    constexpr std::size_t kBinding = 128;
    return sizeof(*this) + kBinding + textSize(value_) + textSize(binding_.get());
  }

private:
  template <typename U> static std::size_t textSize(const U& value) {
    if constexpr (std::is_same_v<U, std::optional<Utf8>>)
      return value ? value->size() : 0;
    else if constexpr (std::is_same_v<U, Utf8>)
      return value.size();
    else
      return 0;
  }

  ValueBinding<T> binding_;
  T value_;
};

} // namespace quillery
