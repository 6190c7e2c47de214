#include <csignal>

#include <tools/lwconfig/application.h>

int main(int argc, char** argv) {
  // A reader that goes away is found when writing, not by being killed.
  std::signal(SIGPIPE, SIG_IGN);
  return lwconfig::tool::RunApplication(argc, argv);
}
