#include "enumeration.h"

#include <memory>
#include <utility>

#include <lwconfig/automation/class_info.h>

#include "failures.h"
#include "unknown.h"
#include "values.h"

namespace lwconfig::com {
namespace {

class Enumeration final : public Implements<IEnumVARIANT> {
 public:
  explicit Enumeration(std::shared_ptr<automation::Enumerator> items) : mItems(std::move(items)) {}

  HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* values, ULONG* fetched) override {
    if (fetched != nullptr) *fetched = 0;
    if (values == nullptr) return E_POINTER;
    ULONG found = 0;
    const HRESULT result = Guarded([&] {
      for (Variant item; found < count && mItems->Next(item); ++found) values[found] = ToVariant(item);
      return found == count ? S_OK : S_FALSE;
    });
    if (FAILED(result)) {
      while (found > 0) ::VariantClear(&values[--found]);
    }
    if (fetched != nullptr) *fetched = found;
    return result;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    return Guarded([&] {
      ULONG skipped = 0;
      for (Variant item; skipped < count && mItems->Next(item);) ++skipped;
      return skipped == count ? S_OK : S_FALSE;
    });
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    return Guarded([&] {
      mItems->Reset();
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return Guarded([&] {
      *result = new Enumeration(mItems->Clone());
      return S_OK;
    });
  }

 private:
  std::shared_ptr<automation::Enumerator> mItems;
};

}  // namespace

IEnumVARIANT* ToEnumeration(const Variant& value) {
  auto items = automation::EnumeratorIn(value);
  return items ? new Enumeration(std::move(items)) : nullptr;
}

}  // namespace lwconfig::com
