#include <iostream>

#include <lwconfig/checking/check_configuration.h>
#include <lwconfig/configuration_scope.h>
#include <lwconfig/root.h>
#include <lwconfig/transaction/transaction.h>

int main(int, char** arguments) {
  const lwconfig::ConfigurationScope folder(arguments[1]);
  for (const auto& problem : lwconfig::CheckConfiguration().Problems)
    std::cout << problem.ModelPath << ": " << problem.Message << "\n";

  lwconfig::Root root;
  lwconfig::Transaction transaction;
  for (const auto& pageTemplate : *root.PageTemplates()) {
    pageTemplate->StyleSheet = "house.css";
    root.PageTemplates()->SaveTemplate(pageTemplate);
  }
  std::cout << transaction.Difference();
  transaction.Commit();
}
