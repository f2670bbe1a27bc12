A build without a library knows the files of its format, and tells what it lacks for them.

  $ . "$TESTDIR/setup.sh"
  $ lines BEGIN:VCALENDAR VERSION:2.0 BEGIN:VEVENT END:VEVENT END:VCALENDAR >in.txt
  $ document calendar >in.json
  $ orvale info in.txt
  orvale: in.txt: the format ics needs libical, which this build goes without
  [1]
  $ orvale show --format ics in.txt
  orvale: the format ics needs libical, which this build goes without
  [2]
  $ orvale convert in.json out.ics
  orvale: the format ics needs libical, which this build goes without
  [2]
  $ orvale formats | grep '^ics '
  ics             calendar    .ics    needs libical, which this build goes without
