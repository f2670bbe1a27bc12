#include "CalendarAndMail.h"
#include "FileBench.h"
#include "native/CALFile.h"
#include "native/EMLFile.h"
#include "native/SMSFile.h"
#include "text/VCalendarFile.h"

using namespace orvale::bench;

namespace {

BENCHMARK_TEMPLATE(Read, CCALFile, MakeItems)->Apply(Sizes);
BENCHMARK_TEMPLATE(Read, CSMSFile, MakeMessages)->Apply(Sizes);
BENCHMARK_TEMPLATE(Read, CEMLFile, MakeEmails)->Apply(Sizes);
BENCHMARK_TEMPLATE(Read, CVCalendarFile, MakeItems, 1)->Apply(Sizes);  // the calendars of a file are one item
BENCHMARK_TEMPLATE(Write, CCALFile, MakeItems)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CSMSFile, MakeMessages)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CEMLFile, MakeEmails)->Apply(Sizes);
BENCHMARK_TEMPLATE(Write, CVCalendarFile, MakeItems)->Apply(Sizes);

}  // namespace
