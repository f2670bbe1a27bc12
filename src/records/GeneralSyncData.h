#pragma once

/// The records and profiles that host and library share by their layout. Both must be built with the same compiler and
/// standard library; a build whose containers are laid out differently is refused here.

#include <string>

#if !defined(__GLIBCXX__) || !_GLIBCXX_USE_CXX11_ABI
#error "Orvale's records cross its boundary by layout: build with GCC's standard library and its present string ABI"
#endif
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
