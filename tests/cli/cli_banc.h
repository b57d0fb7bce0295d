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
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

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
  // The tool's JSON answer, from a run that must succeed.
  nlohmann::json jsonDe(const std::string& arguments) {
    const Résultat r = lancer(arguments);
    EXPECT_EQ(r.code, 0) << arguments << ": " << r.erreurs;
    return r.code == 0 ? nlohmann::json::parse(r.sortie) : nlohmann::json();
  }
  // Width and height of a PNG of the test's folder, from its IHDR chunk.
  std::pair<int, int> taillePng(const std::string& nom) const {
    const std::string o = lireTout(dossier_ / nom);
    if (o.size() < 24 || o.compare(1, 3, "PNG") != 0) return {0, 0};
    const auto be = [&](std::size_t i) {
      return static_cast<unsigned char>(o[i]) << 24 | static_cast<unsigned char>(o[i + 1]) << 16 |
             static_cast<unsigned char>(o[i + 2]) << 8 | static_cast<unsigned char>(o[i + 3]);
    };
    return {be(16), be(20)};
  }
  // Writes a file of the test's folder; its quoted path.
  std::string poser(const std::string& nom, const std::string& octets) {
    std::ofstream(dossier_ / nom, std::ios::binary) << octets;
    return c(nom);
  }
  std::string poser(const std::string& nom, const std::vector<std::uint8_t>& octets) {
    return poser(nom, std::string(octets.begin(), octets.end()));
  }

  std::filesystem::path dossier_;
};

}  // namespace vt
