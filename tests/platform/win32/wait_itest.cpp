// Waiting on Windows handles: events that are set or not, the first signalled handle winning,
// and a process handle that signals when the process ends.
#include <brelt/os.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace {

constexpr brelt::ULong kTimeout = 258;

TEST(Win32Wait, EventsAndTimeouts) {
  HANDLE unset = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  HANDLE set1 = CreateEventW(nullptr, TRUE, TRUE, nullptr);
  HANDLE set2 = CreateEventW(nullptr, TRUE, TRUE, nullptr);
  struct Row {
    const char* name;
    std::vector<void*> handles;
    brelt::ULong timeout, want;
  } rows[] = {
      {"unset event times out", {unset}, 30, kTimeout},
      {"set event", {set1}, 1000, 0},
      {"first signalled of three", {unset, set2, set1}, 1000, 1},
  };
  for (Row& r : rows) {
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(static_cast<brelt::ULong>(r.handles.size()),
                                              r.handles.data(), r.timeout, 0, 0),
              r.want)
        << r.name;
    const ULONGLONG waited = GetTickCount64() - start;
    if (r.want == kTimeout) {
      EXPECT_GE(waited + 16, r.timeout) << r.name;  // the tick count moves in coarse steps
    } else {
      EXPECT_LT(waited, 500u) << r.name;
    }
  }
  CloseHandle(unset);
  CloseHandle(set1);
  CloseHandle(set2);
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
  // A process that has ended stays signalled.
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, handles, 0, 0, 0), 0u);
  void* self[] = {GetCurrentProcess()};
  EXPECT_EQ(os::MsgWaitForMultipleObjectsEx(1, self, 20, 0, 0), kTimeout);
  CloseHandle(pi.hThread);
  CloseHandle(pi.hProcess);
}

}  // namespace
