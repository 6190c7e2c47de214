#pragma once

#include <map>
#include <memory>

#include <gtest/gtest.h>
#include <tests/com/published.h>

namespace lwconfig::testing {

/// A client of the server that was built. Each test loads the DLL anew. At its end the DLL may be unloaded,
/// and no object of the test's own is kept.
class ServerTest : public ::testing::Test {
 protected:
  ServerTest() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ServerTest() override { ::CoUninitialize(); }
  void SetUp() override {
    ASSERT_EQ(::GetModuleHandleW(Server::Path()), nullptr);
    mServer = std::make_unique<Server>();
    ASSERT_TRUE(mServer->IsLoaded()) << ::GetLastError();
  }
  void TearDown() override {
    ::SetErrorInfo(0, nullptr);
    EXPECT_EQ(mServer->CanUnloadNow(), S_OK);
    mServer.reset();
    EXPECT_EQ(::GetModuleHandleW(Server::Path()), nullptr);
    EXPECT_EQ(ForeignObject::Live(), 0);
  }

  Object Create(const std::string& className) const {
    Object object;
    EXPECT_EQ(mServer->Create(Published().at(className).Id, object), S_OK) << className;
    return object;
  }

  std::unique_ptr<Server> mServer;
};

/// One object of every published class, by its name.
class ObjectPool : public std::map<std::string, Object> {
 public:
  explicit ObjectPool(const Server& server) {
    ObjectPool& all = *this;
    for (const auto& [name, info] : Published()) {
      if (info.IsCreatable) server.Create(info.Id, all[name]);
    }
    // Keys of these are numbers unless they are set.
    for (const char* numbered : {"NodeDef", "PlugIn"}) Put(all[numbered], L"Key", L"key");
    // The others belong to a document.
    const Object root = Get(all["XMLDocument"], L"RootElement").ToObject();
    Put(root, L"Name", L"Sample");
    Call(root, L"AddElement", {L"Child", L"text"});
    all["XMLElement"] = root;
    all["XMLElements"] = Get(root, L"Children").ToObject();
    all["XMLAttribute"] = Call(root, L"AddAttribute", {L"Name", L"value"}).ToObject();
    all["XMLAttributes"] = Get(root, L"Attributes").ToObject();
  }
};

}  // namespace lwconfig::testing
