#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillery {

/// The schedule of produceInOrder: who makes which product and when, whatever a product is.
class OrderedProduction {
public:
  /// How many products there can be at once; product i takes the place of product i - window.
  static std::size_t window(std::size_t count);

  /// `produce(i)` makes one product on any thread and lets no exception out. Begins at once.
  OrderedProduction(std::size_t count, std::function<void(std::size_t)> produce);
  /// Returns when no thread is within `produce`, and none will be.
  ~OrderedProduction();
  OrderedProduction(const OrderedProduction&) = delete;
  OrderedProduction& operator=(const OrderedProduction&) = delete;

  /// Waits for the next product, making some meanwhile.
  void awaitNext();
  /// The next product is done with.
  void releaseNext();

private:
  struct State;
  explicit OrderedProduction(std::shared_ptr<State> state);
  std::shared_ptr<State> state_; // also of helpers that come when all is over
};

/// Calls `produce(i)` for every i below `count`, on several threads at once, and `consume(i,
/// result)` in the order of i on the calling thread, which produces too while there is nothing to
/// consume, and alone when there is no other thread to be had. Stops when `consume` returns false.
/// An exception of `produce(i)` comes out when the turn of i has come, one of `consume` at once; no
/// call of either is under way then. At most a few results per thread wait, so memory does not grow
/// with `count`.
template <typename Produce, typename Consume>
void produceInOrder(std::size_t count, Produce produce, Consume consume) {
  using Product = std::invoke_result_t<Produce, std::size_t>;
  struct Place {
    std::optional<Product> product;
    std::exception_ptr failure;
  };
  std::vector<Place> places(OrderedProduction::window(count));
  OrderedProduction production(count, [&](std::size_t i) noexcept {
    Place& place = places[i % places.size()];
    try {
      place.product.emplace(produce(i));
    } catch (...) {
      place.failure = std::current_exception();
    }
  });
  for (std::size_t i = 0; i < count; ++i) {
    production.awaitNext();
    Place& place = places[i % places.size()];
    if (place.failure) std::rethrow_exception(place.failure);
    Product product = std::move(*place.product);
    place.product.reset();
    if (!consume(i, std::move(product))) return;
    production.releaseNext();
  }
}

} // namespace quillery
