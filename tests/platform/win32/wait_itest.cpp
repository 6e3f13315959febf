// Waiting on Windows handles: events set or not, the first signalled handle winning, and a
// process handle that signals when the process ends.
#include <brelt/os.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace {

constexpr brelt::ULong kTimeout = 258;

TEST(Win32Wait, EventsAndTimeouts) {
  HANDLE unset = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE set = CreateEventW(nullptr, TRUE, TRUE, nullptr);
  void* one[] = {unset};
  void* three[] = {unset, set, set};
  ULONGLONG start = GetTickCount64();
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, one, 30, 0, 0), kTimeout);
  EXPECT_GE(GetTickCount64() - start + 16, 30u);  // the tick count moves in coarse steps
  start = GetTickCount64();
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(3, three, 1000, 0, 0), 1u);
  EXPECT_LT(GetTickCount64() - start, 500u);
  CloseHandle(unset);
  CloseHandle(set);
}

TEST(Win32Wait, ProcessHandleSignalsWhenTheProcessEnds) {
  // A second run of this program that selects no test ends at once.
  wchar_t path[MAX_PATH];
  ASSERT_GT(GetModuleFileNameW(nullptr, path, MAX_PATH), 0u);
  std::wstring command = L"\"" + std::wstring(path) + L"\" --gtest_filter=NoSuchTest";
  STARTUPINFOW si = {};
  si.cb = sizeof si;
  PROCESS_INFORMATION pi = {};
  ASSERT_TRUE(CreateProcessW(path, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &si, &pi));
  void* handles[] = {pi.hProcess};
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, handles, 30000, 0, 0), 0u);
  // A process that has ended stays signalled; this one has not ended.
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, handles, 0, 0, 0), 0u);
  void* self[] = {GetCurrentProcess()};
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, self, 20, 0, 0), kTimeout);
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
}

}  // namespace
