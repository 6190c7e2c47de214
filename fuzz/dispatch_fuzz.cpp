#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include <tests/automation/random_calls.h>

/// The input chooses the calls; at its end every object has to be gone.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::size_t at = 0;
  const auto next = [&]() -> std::uint32_t { return at < size ? data[at++] : 0; };
  lwconfig::automation::RandomCalls calls([&](std::uint32_t below) {
    const std::uint32_t low = next();
    return (below > 256 ? low << 8U | next() : low) % below;
  });
  while (at < size) calls.CallAny();
  if (calls.Finish() != 0) std::abort();
  return 0;
}
