#pragma once

// The columns of CSV files that nobody describes: captions for types, and types for captions.

#include <cstdint>
#include <string>

#include "command/files/InputName.h"
#include "command/formats/Profile.h"

namespace orvale {

/// The built-in caption of a type of values: a plain English one for every type id of the table, else "Type N".
std::u16string CaptionOf(std::int32_t type);

/// Adds the column of a type under its built-in caption.
void AddColumn(CCSVProfile& profile, std::int32_t type);

/// The columns by which an input of columns is read: those that the user gave for it, else the built-in ones of all
/// types of the table and of each "Type N" in the file.
SharedProfile ColumnsOf(const InputName& input);

}  // namespace orvale
