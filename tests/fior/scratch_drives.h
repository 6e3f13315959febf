// Drives D:, E: and F: over scratch folders, and a current directory of drive C of the test's
// own, for the path tables that name drives. Natively the platform layer maps the letters;
// under Wine the test prefix links them (cmake/wine-run.sh). Each test starts with empty
// drives and leaves the current directories as it found them.
#pragma once

#include <brelt/fio.h>
#include <brelt/lib.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_names.h"

namespace brelt::test {

class ScratchDrives : public testing::Test {
 protected:
  void SetUp() override {
    before_ = Current(0);
    c_before_ = Current(3);
    const auto tick = std::chrono::steady_clock::now().time_since_epoch().count();
    scratch_ = std::filesystem::temp_directory_path() /
               ("brelt-fior-" + std::to_string(tick % 100000000));
    ASSERT_TRUE(std::filesystem::create_directory(scratch_));
    for (const char letter : {'D', 'E', 'F'}) {
      const std::string root = std::string(1, letter) + ":\\";
      if (FIO::ExistsDirA(3, root.c_str()) != 0) {
        roots_.emplace_back(root);  // the Wine prefix gives it
      } else {
        const auto folder = scratch_ / std::string(1, letter);
        std::filesystem::create_directory(folder);
        ASSERT_TRUE(brelt::platform::MapDrive(letter, folder.string().c_str())) << letter;
        mapped_.push_back(letter);
        roots_.push_back(folder);
      }
    }
    EmptyDrives();
    // Drive C's own directory: a folder "top\c1" of the scratch folder.
    std::filesystem::create_directories(scratch_ / "top" / "c1");
    c_dir_ = Enter((scratch_ / "top" / "c1").string());
  }

  void TearDown() override {
    Enter(c_before_);
    Enter(before_);
    EmptyDrives();
    for (const char letter : mapped_) brelt::platform::MapDrive(letter, nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(scratch_, ignored);
  }

  // The current directory of drive C that the test set up, as the library writes it.
  const std::string& CDir() const { return c_dir_; }

  // Makes every folder of `path` ("D:\work\sub") and enters it when `enter` is set.
  static void MakeDirs(const std::string& path, bool enter = false) {
    for (std::size_t at = path.find('\\', 3); ; at = path.find('\\', at + 1)) {
      const std::string part = path.substr(0, at);
      FIO::MkDirA(static_cast<unsigned int>(part.size()), part.c_str());
      if (at == std::string::npos) break;
    }
    if (enter) Enter(path);
  }

  // A file with `bytes` in it, its folders made first.
  static void PutFile(const std::string& path, std::string_view bytes = "x") {
    MakeDirs(path.substr(0, path.rfind('\\')));
    const FileHandle f = FIO::CreateA(static_cast<unsigned int>(path.size()), path.c_str(), 0);
    ASSERT_NE(f, brelt::kInvalidFileHandle) << path;
    FIO::WrBin(f, 0, bytes.data(), static_cast<brelt::ULong>(bytes.size()));
    FIO::Close(f);
  }

  // Enters `dir` and answers the name the library gives it. Windows keeps a drive's
  // directory in the variable "=X:", which the system's own change of directory leaves alone;
  // elsewhere the variable is refused and the layer remembers the directory itself.
  static std::string Enter(const std::string& dir) {
    FIO::ChDirA(static_cast<unsigned int>(dir.size()), dir.c_str());
    std::string here = Current(0);
    if (here.size() >= 2 && here[1] == ':') {
      const char name[4] = {'=', here[0], ':', '\0'};
      Lib::SetEnvironmentStringA(3, name, static_cast<unsigned int>(here.size()), here.c_str());
    }
    return here;
  }

  static std::string Current(brelt::ULong drive) {
    char text[260] = {};
    FIO::GetDirA(drive, 259, text);
    return text;
  }

 private:
  void EmptyDrives() {
    std::error_code ignored;
    for (const auto& root : roots_) {
      for (const auto& e : std::filesystem::directory_iterator(root, ignored)) {
        std::filesystem::remove_all(e.path(), ignored);
      }
    }
  }

  std::filesystem::path scratch_;
  std::vector<std::filesystem::path> roots_;
  std::vector<char> mapped_;
  std::string before_, c_before_, c_dir_;
};

}  // namespace brelt::test
