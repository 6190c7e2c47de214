#pragma once

#include <map>
#include <string>

namespace lwconfig::bench {

/// A benchmark's time is shown as a multiple of another's.
struct Ratio {
  std::string Base;  // name of the other benchmark
  std::string Aim;   // what is aimed at, for the reader
  double Scale = 1;  // how many times the base's work it does
};

/// The ratios to show, by benchmark name.
std::map<std::string, Ratio>& Ratios();

}  // namespace lwconfig::bench
