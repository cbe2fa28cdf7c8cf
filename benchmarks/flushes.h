// How often the program has asked the disk to keep what it wrote: each fdatasync and fsync of the process is
// counted.
#pragma once

namespace bench {

long flushes();

}  // namespace bench
