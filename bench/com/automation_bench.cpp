// What the automation server adds to the library: calls through its interfaces, and a configuration loaded
// through it, beside the same done by the library in this process. Each figure is the median of several runs.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>

#include <tests/com/automation_client.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/root.h>

#include "LWConfigObjects.h"

namespace {

using namespace lwconfig::testing;

/// Nanoseconds for one call of `body`, which is run `times` in a row.
double Median(int times, const std::function<void()>& body) {
  std::vector<double> runs;
  for (int run = 0; run < 15; ++run) {
    const auto start = std::chrono::steady_clock::now();
    for (int time = 0; time < times; ++time) body();
    const std::chrono::duration<double, std::nano> spent = std::chrono::steady_clock::now() - start;
    runs.push_back(spent.count() / times);
  }
  std::nth_element(runs.begin(), runs.begin() + 7, runs.end());
  return runs[7];
}

void Tell(const char* what, double nanoseconds, double basis) {
  std::printf("%-58s %12.0f ns  %6.2f\n", what, nanoseconds, nanoseconds / basis);
}

void CompareCalls(const Server& server) {
  constexpr int kTimes = 20'000;
  namespace automation = lwconfig::automation;
  const automation::ClassInfo& info = *automation::FindClass("PageLayout");
  const lwconfig::AnyObject model = info.Create();
  const std::int32_t count = info.Find("DependantCount")->Id;
  const double library = Median(kTimes, [&] { automation::Invoke(model, count, automation::kPropertyGet); });

  Object object;
  server.Create(__uuidof(PageLayout), object);
  ComPtr<_PageLayout> layout;
  object.As(&layout);
  layout->put_Name(Value(L"Introduction").bstrVal);
  long number = 0;
  Tell("a number, by the library's own late binding", library, library);
  Tell("a number, early bound", Median(kTimes, [&] { layout->get_DependantCount(&number); }), library);

  VARIANT result;
  DISPPARAMS none{};
  wchar_t member[] = L"DependantCount";
  wchar_t* name = member;
  const auto invoke = [&](DISPID id) {
    object->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &result, nullptr, nullptr);
  };
  Tell("a number, late bound by its number", Median(kTimes, [&] { invoke(count); }), library);
  Tell("a number, late bound by its name",
       Median(kTimes,
              [&] {
                DISPID id = 0;
                object->GetIDsOfNames(IID_NULL, &name, 1, 0, &id);
                invoke(id);
              }),
       library);
  Tell("a text, early bound",
       Median(kTimes,
              [&] {
                BSTR text = nullptr;
                layout->get_Name(&text);
                ::SysFreeString(text);
              }),
       library);
  ComPtr<IClassFactory> factory;
  server.GetClassObject(__uuidof(PageLayout), IID_PPV_ARGS(&factory));
  Tell("an object, made and released",
       Median(kTimes,
              [&] {
                Object made;
                factory->CreateInstance(nullptr, IID_PPV_ARGS(&made));
              }),
       library);
}

void CompareLoads(const Server& server) {
  const StarterConfiguration configuration;
  const double library = Median(3, [] {
    lwconfig::Root root;
    for (const auto& pageTemplate : *root.PageTemplates()) pageTemplate->PageLayouts()->Count();
  });
  const double through = Median(3, [&] {
    Object root;
    server.Create(__uuidof(Root), root);
    for (const Value& item : ItemsOf(Get(root, L"PageTemplates").ToObject()))
      Get(item.ToObject(), L"PageLayouts");
  });
  Tell("the templates of the starter configuration, by the library", library, library);
  Tell("the templates of the starter configuration, by the server", through, library);
}

}  // namespace

int main() {
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  {
    const Server server;
    if (!server.IsLoaded()) return 1;
    CompareCalls(server);
    CompareLoads(server);
  }
  ::CoUninitialize();
}
