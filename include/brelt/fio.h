// FIO: files through unbuffered handles. Opening, binary transfer, positions and sizes;
// directory walks, the current directory and drive, attributes and file times; text read and
// written token by token (fio/text_reader.h, fio/text_writer.h).
//
// A name is a bounded string of at most 259 characters; a longer one is refused before any
// system call, and then the last error stays as it was. Every other failure leaves the
// system's code in the calling thread's last error, which IOresult reads: an operation clears
// it right before its system call (Flush, GetFileTime2 and SetFileTime2 excepted).
#pragma once

#include <brelt/config.h>
#include <brelt/fio/text_reader.h>
#include <brelt/fio/text_writer.h>

namespace FIO {

using brelt::FileHandle;
using brelt::WChar;

// The system's file time: 100-nanosecond units since 1 January 1601 UTC, lower half first.
struct FileTime {
  brelt::ULong dwLowDateTime;
  brelt::ULong dwHighDateTime;
};
static_assert(sizeof(FileTime) == 8);

// The record of a directory walk: the system's find record, then the walk's own two fields.
struct DirEntryA {
  brelt::ULong dwFileAttributes;
  FileTime ftCreationTime;
  FileTime ftLastAccessTime;
  FileTime ftLastWriteTime;
  brelt::ULong nFileSizeHigh;
  brelt::ULong nFileSizeLow;
  brelt::ULong dwReserved0;
  brelt::ULong dwReserved1;
  char cFileName[260];
  char cAlternateFileName[14];
  void* findHandle;  // all ones once a walk has ended by itself
  brelt::ULong attrMask;
};
static_assert(sizeof(DirEntryA) == 336);

// Holds 0; nothing reads or writes it.
BRELT_API extern char Dummy;

// --- Handles and binary transfer. `share` goes to the system as the share mode.
// Open and OpenRead need the file; Create makes it or cuts it to length 0; Append needs it
// and starts at its end. Read and write access for all but OpenRead.
BRELT_API FileHandle OpenA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API FileHandle OpenW(unsigned int high, const WChar* name, brelt::ULong share);
BRELT_API FileHandle OpenReadA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API FileHandle OpenReadW(unsigned int high, const WChar* name, brelt::ULong share);
BRELT_API FileHandle CreateA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API FileHandle CreateW(unsigned int high, const WChar* name, brelt::ULong share);
BRELT_API FileHandle AppendA(unsigned int high, const char* name, brelt::ULong share);
BRELT_API FileHandle AppendW(unsigned int high, const WChar* name, brelt::ULong share);

// Releases the handle.
BRELT_API void Close(FileHandle file);
// Hands what the system keeps of the file to the disk.
BRELT_API void Flush(FileHandle file);
// The position becomes byte `pos`, counted from the start.
BRELT_API void Seek(FileHandle file, brelt::UInt64 pos);
// All ones on failure.
BRELT_API brelt::UInt64 GetPos(FileHandle file);
BRELT_API brelt::UInt64 Size(FileHandle file);
// The file ends at the current position.
BRELT_API void Truncate(FileHandle file);
// 1 when the position equals the size, both taken in 32 bits.
BRELT_API unsigned char EndOfFile(FileHandle file);
// One system read or write of `count` bytes; `high` is not consulted.
BRELT_API brelt::ULong RdBin(FileHandle file, unsigned int high, void* buf, brelt::ULong count);
BRELT_API void WrBin(FileHandle file, unsigned int high, const void* buf, brelt::ULong count);
// 1 for 16-bit text: a byte-order mark FF FE (then left behind, at position 2) or a second
// byte of 0 (position 0). Otherwise 0, at position 0.
BRELT_API unsigned char IsUnicodeFile(FileHandle file);
// The calling thread's last error: the system's code of the last failure, 0 after success.
BRELT_API brelt::ULong IOresult();

// 1 for an existing file (not a folder) / an existing folder.
BRELT_API unsigned char ExistsA(unsigned int high, const char* name);
BRELT_API unsigned char ExistsW(unsigned int high, const WChar* name);
BRELT_API unsigned char ExistsDirA(unsigned int high, const char* name);

// --- Directory walks. An entry passes when its attribute word is 0 or shares a bit with
// `mask`. A walk that runs to its end closes itself; CloseEntryA leaves one early.
BRELT_API unsigned char ReadFirstEntryA(unsigned int high, const char* name, brelt::ULong mask,
                                        DirEntryA* entry);
BRELT_API unsigned char ReadNextEntryA(DirEntryA* entry);
BRELT_API void CloseEntryA(DirEntryA* entry);

// --- Current directory and drive. GetDirA and GetDrive count drive A as 1 (GetDirA: 0 is
// the current drive); SetDrive counts it as 0.
BRELT_API void GetDirA(brelt::ULong drive, unsigned int high, char* dst);
BRELT_API brelt::ULong GetDrive();
BRELT_API unsigned char SetDrive(brelt::ULong drive);
// ChDirA sets the current directory; MkDirA and RmDirA make and remove a folder; DeleteA
// deletes a file; RenameA gives an entry a new name.
BRELT_API void ChDirA(unsigned int high, const char* name);
BRELT_API void MkDirA(unsigned int high, const char* name);
BRELT_API void RmDirA(unsigned int high, const char* name);
BRELT_API void DeleteA(unsigned int high, const char* name);
BRELT_API void RenameA(unsigned int high, const char* name, unsigned int newhigh,
                       const char* newname);
// All ones on failure.
BRELT_API brelt::ULong GetFileAttrA(unsigned int high, const char* name);
// On Linux only read-only (0x01) can be set, and on files only.
BRELT_API void SetFileAttrA(unsigned int high, const char* name, brelt::ULong attrs);

// --- File times. GetFileTime gives the last write time; SetFileTime sets all three. The
// forms with 2 take calendar fields in UTC.
BRELT_API FileTime GetFileTime(FileHandle file);
BRELT_API void SetFileTime(FileHandle file, FileTime time);
BRELT_API void GetFileTime2(FileHandle file, brelt::ULong* year, brelt::ULong* month,
                            brelt::ULong* day, brelt::ULong* hour, brelt::ULong* minute,
                            brelt::ULong* second, brelt::ULong* milliseconds);
BRELT_API void SetFileTime2(FileHandle file, brelt::ULong year, brelt::ULong month,
                            brelt::ULong day, brelt::ULong hour, brelt::ULong minute,
                            brelt::ULong second, brelt::ULong milliseconds);
// The current time as a file time.
BRELT_API FileTime GetCurrentFileTime();

}  // namespace FIO
