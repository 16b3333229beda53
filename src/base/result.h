#pragma once

#include <cassert>
#include <optional>
#include <utility>
#include <variant>

namespace quillery {

/// Wraps an error on its way into a Result, so that a Result whose value and error have the same
/// type stays unambiguous.
template <typename E> struct Failure { E error; };

template <typename E> Failure(E) -> Failure<E>;

/// The outcome of an operation that the world can make fail: a value or an error. Reading the one
/// that is not there is a bug of the caller (assertion).
template <typename T, typename E> class [[nodiscard]] Result {
public:
  Result(T value) : state_(std::in_place_index<0>, std::move(value)) {}
  template <typename F>
  Result(Failure<F> failure) : state_(std::in_place_index<1>, std::move(failure.error)) {}

  bool ok() const { return state_.index() == 0; }
  explicit operator bool() const { return ok(); }

  T& value() & { return assert(ok()), std::get<0>(state_); }
  const T& value() const& { return assert(ok()), std::get<0>(state_); }
  T&& value() && { return assert(ok()), std::move(std::get<0>(state_)); }
  const E& error() const { return assert(!ok()), std::get<1>(state_); }

private:
  std::variant<T, E> state_;
};

/// The outcome of an operation that yields nothing but success or an error.
template <typename E> class [[nodiscard]] Result<void, E> {
public:
  Result() = default;
  template <typename F> Result(Failure<F> failure) : error_(std::move(failure.error)) {}

  bool ok() const { return !error_.has_value(); }
  explicit operator bool() const { return ok(); }
  const E& error() const { return assert(error_), *error_; }

private:
  std::optional<E> error_;
};

} // namespace quillery
