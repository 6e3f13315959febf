// Everything brelt exports.
#pragma once

#include <brelt/config.h>
#include <brelt/fio.h>
#include <brelt/fior.h>
#include <brelt/lib.h>
#include <brelt/mathlib.h>
#include <brelt/os.h>
#include <brelt/seh.h>
#include <brelt/storage.h>
#include <brelt/str.h>
