#include <system_error>
#include <utility>

#include <lwconfig/core/loading/load_listener.h>
#include <lwconfig/core/loading/read_ahead.h>

namespace lwconfig {

ReadAhead::ReadAhead(std::vector<DiskFile> files) : mFiles(std::move(files)) {
  if (mFiles.size() < 2) return;
  try {
    mReader = std::thread([this] { ReadAll(); });
  } catch (const std::system_error&) {
    // Without another thread, read each file on request.
  }
}

ReadAhead::~ReadAhead() {
  {
    const std::lock_guard lock(mMutex);
    mStopped = true;
  }
  mChanged.notify_all();
  if (mReader.joinable()) mReader.join();
}

ReadAhead::Result ReadAhead::Read(const DiskFile& file) {
  Result result;
  try {
    result.Document.ReadFile(file, LoadListener::Current().Observe());
  } catch (...) {
    result.Failure = std::current_exception();
  }
  return result;
}

void ReadAhead::ReadAll() {
  for (const DiskFile& file : mFiles) {
    Result result = Read(file);
    std::unique_lock lock(mMutex);
    mChanged.wait(lock, [this] { return mStopped || !mNext; });
    if (mStopped) return;
    mNext = std::move(result);
    mChanged.notify_all();
  }
}

ReadAhead::Result ReadAhead::Take() {
  if (!mReader.joinable()) return Read(mFiles[mTaken++]);
  std::unique_lock lock(mMutex);
  mChanged.wait(lock, [this] { return mNext.has_value(); });
  Result result = *std::exchange(mNext, std::nullopt);
  lock.unlock();
  mChanged.notify_all();
  return result;
}

XMLDocument ReadAhead::Next() {
  Result result = Take();
  if (result.Failure) std::rethrow_exception(result.Failure);
  return std::move(result.Document);
}

}  // namespace lwconfig
