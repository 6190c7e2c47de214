#pragma once

namespace lwconfig::platform {

/// The active replacement for service `T`, or null.
template <class T>
inline T* gReplacement = nullptr;

/// The active service of type `T`: the host's own (`T::Native()`) unless a `ScopedHost` replaces it. The
/// reference stays valid for the lifetime of the process, or of the replacement.
template <class T>
T& Host() {
  return gReplacement<T> != nullptr ? *gReplacement<T> : T::Native();
}

/// Replaces the host's service by `replacement` during the lifetime of this object. The caller owns
/// `replacement`, which must outlive it; scopes nest.
template <class T>
class ScopedHost {
 public:
  explicit ScopedHost(T& replacement) : mPrevious(gReplacement<T>) { gReplacement<T> = &replacement; }
  ~ScopedHost() { gReplacement<T> = mPrevious; }
  ScopedHost(const ScopedHost&) = delete;
  ScopedHost& operator=(const ScopedHost&) = delete;

 private:
  T* mPrevious;
};

}  // namespace lwconfig::platform
