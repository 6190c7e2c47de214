#pragma once

#include <memory>

#include <gtest/gtest.h>
#include <tests/com/automation_client.h>

namespace lwconfig::testing {

/// A client of the server that was built. Each test loads it anew, and has to leave nothing behind: the DLL
/// may then be unloaded, and no object of the test's own is kept.
class ServerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
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
    ::CoUninitialize();
  }

  Object Create(std::string_view className) const {
    Object object;
    const HRESULT code = mServer->Create(className, object);
    EXPECT_EQ(code, S_OK) << className;
    return object;
  }
  Server& TheServer() const { return *mServer; }

 private:
  std::unique_ptr<Server> mServer;
};

}  // namespace lwconfig::testing
