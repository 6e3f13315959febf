// Drives D:, E: and F: for the path tables, empty when each test starts and ends: the Wine
// prefix gives them (cmake/wine-run.sh), natively they show folders of the scratch folder.
// Drive C gets a current directory of the test's own, "top\c1" in the scratch folder.
#pragma once

#include <brelt/lib.h>

#include <string>
#include <string_view>
#include <vector>

#include "../fio/scratch_folder.h"
#include "platform/file_names.h"

namespace brelt::test {

class ScratchDrives : public ScratchFolder {
 protected:
  void SetUp() override {
    c_before_ = Current(3);
    ScratchFolder::SetUp();
    for (const char letter : {'D', 'E', 'F'}) {
      const std::string root = {letter, ':', '\\'}, folder(1, letter);
      if (FIO::ExistsDirA(3, root.c_str()) != 0) {
        roots_.emplace_back(root);
      } else {
        MakeFolder(folder);
        ASSERT_TRUE(platform::MapDrive(letter, Native(folder).string().c_str())) << letter;
        mapped_.push_back(letter);
      }
    }
    EmptyDrives();
    fs::create_directories(Native("top/c1"));
    c_dir_ = Enter(Native("top/c1").string());
  }
  void TearDown() override {
    Enter(c_before_);
    EmptyDrives();
    for (const char letter : mapped_) platform::MapDrive(letter, nullptr);
    ScratchFolder::TearDown();
  }

  const std::string& CDir() const { return c_dir_; }

  // Makes every folder of `path` ("D:\work\sub"), and enters it when `enter` is set.
  static void MakeDirs(const std::string& path, bool enter = false) {
    for (std::size_t at = path.find('\\', 3);; at = path.find('\\', at + 1)) {
      const std::string part = path.substr(0, at);
      FIO::MkDirA(HighOf(part), part.c_str());
      if (at == std::string::npos) break;
    }
    if (enter) Enter(path);
  }
  static void PutFile(const std::string& path, std::string_view bytes) {
    MakeDirs(path.substr(0, path.rfind('\\')));
    const FileHandle f = FIO::CreateA(HighOf(path), path.c_str(), 0);
    ASSERT_NE(f, brelt::kInvalidFileHandle) << path;
    FIO::WrBin(f, 0, bytes.data(), static_cast<brelt::ULong>(bytes.size()));
    FIO::Close(f);
  }
  // Windows keeps a drive's directory in the variable "=X:", which its own change of directory
  // leaves alone; elsewhere the variable is refused and the layer keeps the directory itself.
  static std::string Enter(const std::string& dir) {
    FIO::ChDirA(HighOf(dir), dir.c_str());
    const std::string here = Current(0);
    if (here.size() >= 2 && here[1] == ':') {
      const char name[4] = {'=', here[0], ':', '\0'};
      Lib::SetEnvironmentStringA(3, name, HighOf(here), here.c_str());
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
      for (const auto& e : fs::directory_iterator(root, ignored)) fs::remove_all(e.path(), ignored);
    }
  }

  std::vector<fs::path> roots_;
  std::vector<char> mapped_;
  std::string c_before_, c_dir_;
};

}  // namespace brelt::test
