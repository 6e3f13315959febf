// A temporary folder of a test's own: made under the system's temporary folder, entered with
// FIO::ChDirA, and removed with everything in it when the test ends. Files are laid out and
// inspected with std::filesystem, so that the checks do not rest on the code under test.
#pragma once

#include <brelt/fio.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace brelt::test {

namespace fs = std::filesystem;

inline unsigned int HighOf(const std::string& s) { return static_cast<unsigned int>(s.size()); }

class ScratchFolder : public testing::Test {
 protected:
  void SetUp() override {
    const auto tick = std::chrono::steady_clock::now().time_since_epoch().count();
    native_ = fs::temp_directory_path() / ("brelt-fio-" + std::to_string(tick % 100000000));
    ASSERT_TRUE(fs::create_directory(native_));
    char before[260] = {};
    FIO::GetDirA(0, 259, before);
    before_ = before;
    const std::string name = native_.string();
    FIO::ChDirA(HighOf(name), name.c_str());
    ASSERT_EQ(FIO::IOresult(), 0u) << name;
    char here[260] = {};
    FIO::GetDirA(0, 259, here);
    dir_ = here;
  }

  void TearDown() override {
    FIO::ChDirA(HighOf(before_), before_.c_str());
    std::error_code ignored;
    for (const auto& e : fs::recursive_directory_iterator(native_, ignored)) {
      fs::permissions(e.path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    }
    fs::remove_all(native_, ignored);
  }

  // The folder's name as the library gives it, with its drive: "C:\...\brelt-fio-n".
  const std::string& Dir() const { return dir_; }
  std::string Full(std::string_view name) const { return dir_ + "\\" + std::string(name); }
  fs::path Native(std::string_view name) const { return native_ / fs::path(name); }

  void Put(std::string_view name, std::string_view bytes) const {
    std::ofstream(Native(name), std::ios::binary).write(bytes.data(),
                                                        static_cast<std::streamsize>(bytes.size()));
  }
  std::string Read(std::string_view name) const {
    std::ifstream in(Native(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  void MakeFolder(std::string_view name) const { fs::create_directory(Native(name)); }

  // A last error that is certainly not 0: the code of a missing file.
  static void SetErrorToFileNotFound() { FIO::OpenReadA(13, "no-such-file.x", 0); }

 private:
  fs::path native_;
  std::string before_;
  std::string dir_;
};

}  // namespace brelt::test
