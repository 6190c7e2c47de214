#pragma once

namespace lwconfig::platform {

/// The replacement for service `T` that is in force, or null.
template <class T>
inline T* gReplacement = nullptr;

/// The service of type `T` in force: the host's own (`T::Native()`) unless a `ScopedHost` replaces it.
/// The reference stays valid for the life of the process, or of the replacement.
template <class T>
T& Host() {
  return gReplacement<T> != nullptr ? *gReplacement<T> : T::Native();
}

/// Puts `replacement` in the place of the host's service for the life of this object. The caller owns
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
