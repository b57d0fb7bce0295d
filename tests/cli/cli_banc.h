// The bench of the command-line tests: a fresh folder per test, and the tool
// run as a user runs it, its output and its errors kept.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace vt {

struct Résultat {
  int code = -1;
  std::string sortie;
  std::string erreurs;
};

class CliBanc : public ::testing::Test {
 protected:
  void SetUp() override {
    dossier_ = std::filesystem::temp_directory_path() /
               ("vt_cli_" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->test_suite_name() + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(dossier_);
    std::filesystem::create_directories(dossier_);
  }
  void TearDown() override { std::filesystem::remove_all(dossier_); }

  static std::string lireTout(const std::filesystem::path& p) {
    std::ifstream in(p, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  }
  // A file of the test's folder, quoted for the shell.
  std::string c(const std::string& nom) const { return "'" + (dossier_ / nom).string() + "'"; }
  // Runs the tool with the arguments (quoted by the caller where needed);
  // `avant` goes in front of the program (a command that runs it).
  Résultat lancer(const std::string& arguments, const std::string& avant = {}) {
    const std::filesystem::path out = dossier_ / "stdout", err = dossier_ / "stderr";
    const std::string commande = avant + " '" + VT_CLI + "' " + arguments + " >'" + out.string() +
                                 "' 2>'" + err.string() + "'";
    const int statut = std::system(commande.c_str());
    return {WIFEXITED(statut) ? WEXITSTATUS(statut) : -1, lireTout(out), lireTout(err)};
  }

  std::filesystem::path dossier_;
};

}  // namespace vt
