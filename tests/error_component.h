#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/platform/components.h>

namespace lwconfig::testing {

/// The error-reporting component, registered as long as this object lives. Its reports are kept in `Reports`.
class ErrorComponent {
 public:
  explicit ErrorComponent(std::function<void()> onReport = [] {}) : mOnReport(std::move(onReport)) {
    mPrevious = platform::RegisterComponent(std::string(kErrorComponent),
                                            [this] { return std::make_unique<Receiver>(*this); });
  }
  ~ErrorComponent() { platform::RegisterComponent(std::string(kErrorComponent), std::move(mPrevious)); }
  ErrorComponent(const ErrorComponent&) = delete;
  ErrorComponent& operator=(const ErrorComponent&) = delete;

  std::vector<std::string> Reports;

 private:
  struct Receiver final : platform::Component {
    explicit Receiver(ErrorComponent& owner) : Owner(owner) {}
    void Receive(std::string_view text) override {
      Owner.Reports.emplace_back(text);
      Owner.mOnReport();
    }
    ErrorComponent& Owner;
  };

  std::function<void()> mOnReport;
  platform::ComponentFactory mPrevious;
};

}  // namespace lwconfig::testing
