// The three files of an archive as the embedded engine keeps them.
#pragma once

#include <string>
#include <string_view>

#include "store/record_store.h"

namespace store::embedded {

struct Family {
  explicit Family(const std::string& stem)
      : descriptor(stem + ".ISM"), database(stem + ".ISD"), journal(stem + ".ISF") {}

  std::string descriptor;  // what the archive is, in three lines; the record locks lie far beyond its end
  std::string database;    // the records and their indexes
  std::string journal;     // of the database; it may be empty

  // Beside the database while a station has the archive open, and after a crash.
  std::string shared() const { return database + "-shm"; }
  // A new database while a rebuild or a repair fills it, and what one has left that was cut short.
  std::string fresh() const { return database + "~"; }

  // All three are there, and the descriptor is written, which a creation does last.
  bool isWhole() const;

  // Removes what there is of them, the descriptor first, so that no half of an archive counts as one.
  // kSystem when there is nothing.
  Code remove() const;
};

// What the descriptor tells: a line for the curious, the key length, the format string.
using Descriptor = Shape;
std::string textOf(const Descriptor& descriptor);
bool readDescriptor(std::string_view text, Descriptor& descriptor);  // false: it is none

}  // namespace store::embedded
