// The child that the process tests start with Lib::ExecA. It first waits a moment, so that the
// test can see it still running, then writes into the file named by its first parameter what
// it was started with: its parameter count, every parameter, and BRELT_EXEC_VALUE, one a line.
#include <brelt/fio.h>
#include <brelt/lib.h>

#include <string>

int main() {
  Lib::Delay(150);
  char text[300];
  std::string report = std::to_string(Lib::ParamCount()) + "\n";
  for (unsigned i = 0; i <= Lib::ParamCount(); ++i) {
    Lib::ParamStrA(sizeof text - 1, text, i);
    report += std::string(text) + "\n";
  }
  Lib::GetEnvironmentStringA(16, "BRELT_EXEC_VALUE", sizeof text - 1, text);
  report += std::string("env=") + text + "\n";
  Lib::ParamStrA(sizeof text - 1, text, 1);
  const brelt::FileHandle out = FIO::CreateA(sizeof text - 1, text, 0);
  FIO::WrBin(out, 0, report.data(), static_cast<brelt::ULong>(report.size()));
  FIO::Close(out);
  return FIO::IOresult() == 0 ? 0 : 1;
}
