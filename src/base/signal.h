#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace quillery {

/// Keeps a listener connected to a signal while it lives. Outlives the signal without harm.
class [[nodiscard]] Connection {
public:
  Connection() = default;
  explicit Connection(std::shared_ptr<void> listener) : listener_(std::move(listener)) {}

private:
  std::shared_ptr<void> listener_;
};

/// Announces events to listeners, in the order in which they connected. Listeners may connect and
/// disconnect, and emit again, while they are called; one that connects during an announcement
/// hears the next. One thread only.
template <typename... Args> class Signal {
public:
  using Listener = std::function<void(Args...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  Connection connect(Listener listener) {
    auto slot = std::make_shared<Slot>(Slot{std::move(listener)});
    listeners_.push_back(slot);
    // The slot of a listener that is being called outlives its connection, so it is told.
    void* const address = slot.get();
    return Connection(std::shared_ptr<void>(address, [slot](void*) { slot->connected = false; }));
  }

  void emit(Args... args) {
    const auto current = listeners_;
    for (const auto& weak : current) {
      if (const auto slot = weak.lock(); slot && slot->connected) slot->listener(args...);
    }
    std::erase_if(listeners_, [](const auto& weak) { return weak.expired(); });
  }

private:
  struct Slot {
    Listener listener;
    bool connected = true;
  };

  std::vector<std::weak_ptr<Slot>> listeners_;
};

/// Ties callbacks to the life of their owner: what `guard` returns does nothing once the Lifetime
/// is gone. One thread only.
class Lifetime {
public:
  Lifetime() = default;
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;

  template <typename F> auto guard(F callback) const {
    return [alive = std::weak_ptr<const char>(token_),
            callback = std::move(callback)](auto&&... args) {
      if (!alive.expired()) callback(std::forward<decltype(args)>(args)...);
    };
  }

private:
  std::shared_ptr<const char> token_ = std::make_shared<const char>('\0');
};

} // namespace quillery
