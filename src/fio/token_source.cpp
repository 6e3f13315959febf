// The read way of each thread; see token_source.h.
#include "fio/token_source.h"

namespace brelt::fio {
namespace {

thread_local ReadWay t_readWay = ReadWay::kBlocks;

}  // namespace

void PinReadWay(ReadWay way) { t_readWay = way; }
ReadWay PinnedReadWay() { return t_readWay; }

}  // namespace brelt::fio
