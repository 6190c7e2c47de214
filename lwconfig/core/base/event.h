#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace lwconfig {

/// One handler's subscription to an event. Destroying or closing it ends the subscription, at any time, from
/// within a handler too.
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

/// An event that any number of handlers listen to, called in the order in which they connected.
template <class... Args>
class Event {
 public:
  using Handler = std::function<void(Args...)>;

  /// The subscription lives as long as the result.
  [[nodiscard]] Connection Connect(Handler handler) {
    auto open = std::make_shared<bool>(true);
    // Closed ones end last, with the old list: the end of a handler may run code that connects another.
    auto subscribers = mSubscribers;
    std::erase_if(subscribers, [](const auto& subscriber) { return !*subscriber->Open; });
    subscribers.push_back(std::make_shared<Subscriber>(Subscriber{open, std::move(handler)}));
    mSubscribers.swap(subscribers);
    return Connection(std::move(open));
  }

  /// Calls the handlers connected at this moment. A handler may connect, disconnect and raise events. The
  /// first failure of a handler is thrown on once all others have been called.
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
