// The local date and time, read and set through the platform's calendar record. The setters
// change only their own fields of the record just read and leave every check to the platform.
#include "brelt/lib/process.h"
#include "platform/system_time.h"

namespace Lib {

void GetDate(unsigned int* year, unsigned int* month, unsigned int* day, DayType* dayType) {
  _SYSTEMTIME now;
  brelt::platform::LocalTimeFields(&now);
  *year = now.wYear;
  *month = now.wMonth;
  *day = now.wDay;
  *dayType = static_cast<DayType>(now.wDayOfWeek);
}

void GetTime(unsigned int* hour, unsigned int* minute, unsigned int* second,
             unsigned int* milliseconds) {
  _SYSTEMTIME now;
  brelt::platform::LocalTimeFields(&now);
  *hour = now.wHour;
  *minute = now.wMinute;
  *second = now.wSecond;
  *milliseconds = now.wMilliseconds;
}

// Each field cut to the 16 bits of the record; the day of the week goes along as it was read.
unsigned char SetDate(unsigned int year, unsigned int month, unsigned int day) {
  _SYSTEMTIME fields;
  brelt::platform::LocalTimeFields(&fields);
  fields.wYear = static_cast<unsigned short>(year);
  fields.wMonth = static_cast<unsigned short>(month);
  fields.wDay = static_cast<unsigned short>(day);
  return brelt::platform::SetLocalTimeFields(fields) ? 1 : 0;
}

unsigned char SetTime(unsigned int hour, unsigned int minute, unsigned int second,
                      unsigned int milliseconds) {
  _SYSTEMTIME fields;
  brelt::platform::LocalTimeFields(&fields);
  fields.wHour = static_cast<unsigned short>(hour);
  fields.wMinute = static_cast<unsigned short>(minute);
  fields.wSecond = static_cast<unsigned short>(second);
  fields.wMilliseconds = static_cast<unsigned short>(milliseconds);
  return brelt::platform::SetLocalTimeFields(fields) ? 1 : 0;
}

}  // namespace Lib
