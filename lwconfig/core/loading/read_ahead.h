#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/xml/xml_document.h>

namespace lwconfig {

/// Reads and parses a list of files in order, the next one on a second thread, while the caller processes the
/// previous one. Results, order and failures equal those of reading one after the other.
class ReadAhead {
 public:
  explicit ReadAhead(std::vector<DiskFile> files);
  /// Waits for the current file and drops everything read ahead.
  ~ReadAhead();
  ReadAhead(const ReadAhead&) = delete;
  ReadAhead& operator=(const ReadAhead&) = delete;

  /// The next document. Rethrows the failure of reading it. Called at most once for each file.
  XMLDocument Next();

 private:
  struct Result {
    XMLDocument Document;
    std::exception_ptr Failure;
  };
  static Result Read(const DiskFile& file);
  void ReadAll();
  Result Take();

  const std::vector<DiskFile> mFiles;
  std::mutex mMutex;
  std::condition_variable mChanged;
  // Read and not yet taken. Keep one at most: reading is quicker than processing, and more documents at a
  // time would not fit into the processor's cache.
  std::optional<Result> mNext;
  bool mStopped = false;
  std::size_t mTaken = 0;  // the number of files read without a second thread
  std::thread mReader;     // last: it uses everything above
};

}  // namespace lwconfig
