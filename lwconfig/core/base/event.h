#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lwconfig {

/// The subscription of one handler to an event. Destroying or closing it cancels the subscription; a handler
/// may do so while it runs.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::shared_ptr<bool> open) : mOpen(std::move(open)) {}
  ~Connection() { Close(); }
  Connection(Connection&& other) noexcept = default;
  Connection& operator=(Connection&& other) noexcept {
    if (this != &other) {
      Close();
      mOpen = std::move(other.mOpen);
    }
    return *this;
  }

  void Close() {
    if (mOpen) *mOpen = false;
    mOpen.reset();
  }

 private:
  std::shared_ptr<bool> mOpen;
};

/// An event with any number of handlers, called in the order in which they connected.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  /// The handler stays connected as long as the result is alive.
  [[nodiscard]] Connection Connect(Handler handler) {
    auto open = std::make_shared<bool>(true);
    // Destroy closed handlers last, with the old list: their destructors may connect another handler.
    auto subscribers = mSubscribers;
    std::erase_if(subscribers, [](const auto& subscriber) { return !*subscriber->Open; });
    subscribers.push_back(std::make_shared<Subscriber>(Subscriber{open, std::move(handler)}));
    mSubscribers.swap(subscribers);
    return Connection(std::move(open));
  }

  /// Calls the handlers connected at this moment. A handler may connect, disconnect and raise events. The
  /// first failure is rethrown after all handlers have been called.
  void Raise(Args... args) const {
    if (mSubscribers.empty()) return;
    const auto subscribers = mSubscribers;
    std::exception_ptr failure;
    for (const auto& subscriber : subscribers) {
      if (!*subscriber->Open) continue;
      try {
        subscriber->Call(args...);
      } catch (...) {
        if (!failure) failure = std::current_exception();
      }
    }
    if (failure) std::rethrow_exception(failure);
  }

 private:
  struct Subscriber {
    std::shared_ptr<bool> Open;
    Handler Call;
  };
  std::vector<std::shared_ptr<Subscriber>> mSubscribers;
};

}  // namespace lwconfig
