// FIOR: the table objects themselves. Copies take every field as it stands, the list as a
// pointer, so the copy shares the nodes and a move leaves its source as it was.
#include "fior/global_table.h"

namespace FIOR {

CRed1A::CRed1A() : BaseDir{}, DefaultDir{}, List(nullptr) {}
CRed1A::CRed1A(const CRed1A& other) = default;
CRed1A::CRed1A(CRed1A&& other) = default;
CRed1A& CRed1A::operator=(const CRed1A& other) = default;
CRed1A& CRed1A::operator=(CRed1A&& other) = default;

CRed2A::CRed2A() = default;
CRed2A::CRed2A(const CRed2A& other) = default;
CRed2A::CRed2A(CRed2A&& other) = default;
CRed2A& CRed2A::operator=(const CRed2A& other) = default;
CRed2A& CRed2A::operator=(CRed2A&& other) = default;

}  // namespace FIOR

namespace brelt::fior {

namespace {
FIOR::CRed2A table;
}  // namespace

FIOR::CRed2A& GlobalTable() { return table; }

}  // namespace brelt::fior
