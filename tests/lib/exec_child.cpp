// The child that the process tests start with Lib::ExecA. It first waits a moment, so that the
// test can see it still running, then writes into the file named by its first parameter what
// it was started with: its parameter count, every parameter, and BRELT_EXEC_VALUE, one a line.
#include <brelt/fio.h>
#include <brelt/lib.h>

#include <string>

int main() {
  Lib::Delay(150);
  std::string report = std::to_string(Lib::ParamCount()) + "\n";
  for (unsigned i = 0; i <= Lib::ParamCount(); ++i) {
    char param[300];
    Lib::ParamStrA(sizeof param - 1, param, i);
    report += std::string(param) + "\n";
  }
  const char name[] = "BRELT_EXEC_VALUE";
  char value[64];
  Lib::GetEnvironmentStringA(sizeof name - 1, name, sizeof value - 1, value);
  report += std::string("env=") + value + "\n";

  char file[300];
  Lib::ParamStrA(sizeof file - 1, file, 1);
  const brelt::FileHandle out = FIO::CreateA(sizeof file - 1, file, 0);
  FIO::WrBin(out, static_cast<unsigned>(report.size() - 1), report.data(),
             static_cast<brelt::ULong>(report.size()));
  FIO::Close(out);
  return FIO::IOresult() == 0 ? 0 : 1;
}
