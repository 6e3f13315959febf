// Str: bounded strings in 8-bit (A) and 16-bit (W) characters.
#pragma once

#include <brelt/str/case.h>
#include <brelt/str/copies.h>
#include <brelt/str/core.h>
#include <brelt/str/edit.h>
#include <brelt/str/encoding.h>
#include <brelt/str/integers.h>
#include <brelt/str/items.h>
#include <brelt/str/match.h>
#include <brelt/str/real_format.h>
#include <brelt/str/reals.h>
