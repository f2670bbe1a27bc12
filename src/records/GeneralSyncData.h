#pragma once

/// The records and profiles that host and library share by their layout. Both must be built with the same compiler and
/// standard library; a build whose containers are laid out differently is refused here.

#ifdef _GLIBCXX_DEBUG
#error "Orvale's records cross its boundary by layout: build without _GLIBCXX_DEBUG, whose containers differ"
#endif

#include "records/CSVProfile.h"
#include "records/CalendarItem.h"
#include "records/ContactItem.h"
#include "records/EmailItem.h"
#include "records/PhonebookProfile.h"
#include "records/SMSItem.h"
#include "records/ValueTables.h"
