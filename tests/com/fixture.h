#pragma once

#include <map>
#include <memory>

#include <gtest/gtest.h>
#include <tests/com/slots.h>

namespace lwconfig::testing {

/// A client of the server that was built. Each test loads it anew, and has to leave nothing behind: the DLL
/// may then be unloaded, and no object of the test's own is kept.
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
    if (mServer->IsLoaded()) {
      EXPECT_EQ(mServer->CanUnloadNow(), S_OK);
    }
    mServer.reset();
    EXPECT_EQ(::GetModuleHandleW(Server::Path()), nullptr);
    EXPECT_EQ(ForeignObject::Live(), 0);
  }

  Object Create(std::string_view className) const {
    Object object;
    for (const SlotClass& info : SlotClasses()) {
      if (info.Name == className) mServer->Create(*info.Id, object);
    }
    EXPECT_TRUE(object) << className;
    return object;
  }
  Server& TheServer() const { return *mServer; }

 private:
  std::unique_ptr<Server> mServer;
};

/// One object of every published class.
class ObjectPool {
 public:
  explicit ObjectPool(const Server& server) {
    for (const SlotClass& info : SlotClasses()) {
      if (info.IsCreatable) server.Create(*info.Id, mObjects[info.Name]);
    }
    // The others belong to a document.
    const Object root = Get(mObjects["XMLDocument"], L"RootElement").ToObject();
    Put(root, L"Name", L"Sample");
    Call(root, L"AddElement", {L"Child", L"text"});
    mObjects["XMLElement"] = root;
    mObjects["XMLElements"] = Get(root, L"Children").ToObject();
    mObjects["XMLAttribute"] = Call(root, L"AddAttribute", {L"Name", L"value"}).ToObject();
    mObjects["XMLAttributes"] = Get(root, L"Attributes").ToObject();
  }

  const Object& Of(const std::string& className) const { return mObjects.at(className); }
  /// Of that interface, through which it can be called early bound; null for the interfaces of the system.
  Object With(const IID& id) const {
    Object found;
    for (const SlotClass& info : SlotClasses()) {
      if (*info.Interface == id) Of(info.Name)->QueryInterface(id, &found);
    }
    return found;
  }

 private:
  std::map<std::string, Object> mObjects;
};

}  // namespace lwconfig::testing
