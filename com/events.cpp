#include "events.h"

#include <map>
#include <memory>
#include <utility>
#include <vector>

#include <olectl.h>

#include <lwconfig/automation/dispatch.h>

#include "failures.h"
#include "object.h"
#include "unknown.h"
#include "values.h"

namespace lwconfig::com {
namespace {

/// A sink and its subscriptions. The handlers keep it alive, and so does the source.
struct Sink {
  std::shared_ptr<IDispatch> Receiver;
  std::weak_ptr<void> Source;
  std::vector<Connection> Subscriptions;

  void Raise(DISPID event) const {
    const auto receiver = Receiver;  // the sink may close the connection
    DISPPARAMS none{};
    if (receiver) {
      receiver->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr,
                       nullptr);
    }
  }
  void Close() {
    Subscriptions.clear();
    Receiver.reset();
  }
};

/// By cookie.
std::map<DWORD, std::weak_ptr<Sink>>& Sinks() {
  static auto* sinks = new std::map<DWORD, std::weak_ptr<Sink>>;
  return *sinks;
}

/// Returns copies of a list made when the enumeration was created. `ObjectOf` is the object that an
/// item refers to.
template <class Interface, class Item, auto ObjectOf>
class Snapshot final : public Implements<Interface> {
 public:
  explicit Snapshot(std::vector<Item> items, std::size_t at = 0) : mItems(std::move(items)), mAt(at) {
    for (Item& item : mItems) ObjectOf(item)->AddRef();
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG count, Item* items, ULONG* fetched) override {
    if (fetched != nullptr) *fetched = 0;
    if (items == nullptr || (fetched == nullptr && count != 1)) return E_POINTER;
    ULONG found = 0;
    for (; found < count && mAt < mItems.size(); ++found) {
      items[found] = mItems[mAt++];
      ObjectOf(items[found])->AddRef();
    }
    if (fetched != nullptr) *fetched = found;
    return found == count ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override {
    const std::size_t left = mItems.size() - mAt;
    mAt += count < left ? count : left;
    return count <= left ? S_OK : S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Reset() override {
    mAt = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Clone(Interface** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return Guarded([&] {
      *result = new Snapshot(mItems, mAt);
      return S_OK;
    });
  }

 private:
  ~Snapshot() override {
    for (Item& item : mItems) ObjectOf(item)->Release();
  }

  std::vector<Item> mItems;
  std::size_t mAt;
};

IUnknown* ObjectOfPoint(IConnectionPoint* point) {
  return point;
}
IUnknown* ObjectOfConnection(const CONNECTDATA& connection) {
  return connection.pUnk;
}

class EventPoint final : public Implements<IConnectionPoint> {
 public:
  explicit EventPoint(Object& source) : mSource(&source) {}

  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override {
    if (id == nullptr) return E_POINTER;
    *id = mSource->Binding().EventsId;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override {
    if (container == nullptr) return E_POINTER;
    *container = mSource.Get();
    mSource->AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* receiver, DWORD* cookie) override {
    if (cookie == nullptr) return E_POINTER;
    *cookie = 0;
    if (receiver == nullptr) return E_POINTER;
    return Guarded([&] {
      ComPtr<IDispatch> dispatch;
      const auto offer = [&](REFIID id) {
        return SUCCEEDED(
            receiver->QueryInterface(id, reinterpret_cast<void**>(dispatch.ReleaseAndGetAddressOf())));
      };
      if (!offer(mSource->Binding().EventsId) && !offer(IID_IDispatch)) return CONNECT_E_CANNOTCONNECT;
      const auto sink = std::make_shared<Sink>();
      sink->Receiver = std::static_pointer_cast<IDispatch>(HoldForeign(dispatch.Get()));
      const AnyObject& model = mSource->Model();
      sink->Source = model.Pointer;
      std::erase_if(Sinks(), [](const auto& entry) { return entry.second.expired(); });
      static DWORD last = 0;
      Sinks()[++last] = sink;
      std::vector<Connection> subscriptions;
      DISPID event = 0;
      for (const automation::EventInfo& info : model.Class->Events()) {
        ++event;
        subscriptions.push_back(automation::Connect(model, info.Name, [sink, event] { sink->Raise(event); }));
      }
      sink->Subscriptions = std::move(subscriptions);
      *cookie = last;
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
    return Guarded([&] {
      const auto found = Sinks().find(cookie);
      const auto sink = found != Sinks().end() ? found->second.lock() : nullptr;
      if (!sink || !IsOurs(*sink)) return CONNECT_E_NOCONNECTION;
      Sinks().erase(found);
      sink->Close();
      return S_OK;
    });
  }
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    return Guarded([&] {
      std::vector<CONNECTDATA> connections;
      for (const auto& [cookie, entry] : Sinks()) {
        const auto sink = entry.lock();
        if (sink && IsOurs(*sink)) connections.push_back({sink->Receiver.get(), cookie});
      }
      *result = new Snapshot<IEnumConnections, CONNECTDATA, ObjectOfConnection>(std::move(connections));
      return S_OK;
    });
  }

 private:
  bool IsOurs(const Sink& sink) const { return sink.Source.lock() == mSource->Model().Pointer; }

  ComPtr<Object> mSource;
};

}  // namespace

IConnectionPoint* EventsOf(Object& source) {
  return new EventPoint(source);
}

HRESULT ListConnectionPoints(Object& source, IEnumConnectionPoints** result) {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Guarded([&] {
    const auto point = TakeOver(EventsOf(source));
    *result = new Snapshot<IEnumConnectionPoints, IConnectionPoint*, ObjectOfPoint>({point.Get()});
    return S_OK;
  });
}

}  // namespace lwconfig::com
