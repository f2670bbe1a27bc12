  $ . "$TESTDIR/setup.sh"
  $ export TZ=Europe/Berlin
  $ calendar() { lines BEGIN:VCALENDAR VERSION:2.0 "$@" END:VCALENDAR >in.ics; }
  $ entry() { calendar BEGIN:VEVENT "$@" END:VEVENT; }

Entries as a phone may hold them, each combination of a recurrence, each kind of value, and numbers that are no
combination at all, come back to the last bit. Every event that is written has a start, and no line is too long.

  $ {
  >   while IFS= read -r recurrence; do
  >     for start in '"dtstart": "2010-07-26T06:00:00", ' '"dtstart": "2010-07-31T00:00:01", ' ''; do
  >       echo "{\"itemType\": 0, $start$recurrence}"
  >     done
  >   done <<'END'
  > "recurtype": 0
  > "recurtype": 1
  > "recurtype": 1, "recurinterval": 3, "recurrepeat": 7
  > "recurtype": 1, "recurrepeat": 1000000000
  > "recurtype": 2, "recurweekmask": 62, "recurinterval": 0
  > "recurtype": 2, "recurweekmask": 62
  > "recurtype": 2, "recurweekmask": 2
  > "recurtype": 2, "recurweekmask": 73, "recurinterval": 2
  > "recurtype": 2, "recurweekmask": 0
  > "recurtype": 3, "recurday": 26
  > "recurtype": 3, "recurday": 31, "recurhasenddate": 1, "recurenddate": "2012-12-31T00:00:00"
  > "recurtype": 3, "recurweekmask": 2, "recurinstance": 1
  > "recurtype": 4, "recurday": 26, "recurmonth": 7
  > "recurtype": 4, "recurday": 29, "recurmonth": 2
  > "recurtype": 4, "recurweekmask": 2, "recurmonth": 7, "recurinstance": 1
  > "recurtype": 4, "recurday": 77, "recurmonth": 13
  > "recurtype": 3, "recurweekmask": 6, "recurinstance": 1
  > "recurtype": 5, "recurweekday": 3, "recurinterval": -1
  > "recurtype": 6, "recurrepeat": 5, "recurhasenddate": 1, "recurenddate": 40000.123456789
  > "recurtype": 0, "recurinterval": 0, "recurweekmask": 127
  > END
  >   cat <<'END'
  > {"itemType": -1}
  > {"itemType": 7, "priority": 9, "category": 77, "secret": 2, "complete": -3, "remindermin": -2147483648}
  > {"itemType": 1, "complete": 1, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T07:00:00", "priority": 2}
  > {"itemType": 0, "complete": 1, "priority": 0, "category": 14, "secret": 1}
  > {"itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T06:00:00", "remindermin": 15}
  > {"itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-25T06:00:00", "remindermin": -90}
  > {"itemType": 0, "dtstart": 40385.12345678901, "dtend": 40386.0000001, "ringid": -4, "ring": "Ann's, \"x\"; y"}
  > {"itemType": 0, "vibration": 1, "duration": 60, "reserve1": 1, "reserve2": -2, "operation": 4}
  > {"fields": [{"type": 3000, "data": "a"}, {"type": 3012, "data": "+49;,1"}, {"type": 3000, "data": "b"}, {"type": 3012, "data": "2", "number": 5}, {"type": 3003, "data": "Café, 山田; \\n 😀"}]}
  > {"fields": [{"type": 3004, "data": "http://example.com/?a,b;c\\"}, {"type": 4711, "data": "x:y"}]}
  > {"fields": [{"type": 3004, "data": "no address"}, {"type": 3002, "data": ""}, {"type": 3003, "data": "-"}]}
  > {"fields": [{"type": 3002, "data": "  a\r\nb\n\tc\r\u0001 "}, {"type": 3000, "data": "a\r\n\r\nb\r\n"}]}
  > END
  >   echo "{\"fields\": [{\"type\": 3002, \"data\": \"$(printf 'x%.0s' {1..900})ä山 \"}]}"
  > } | { mapfile -t records; document calendar "${records[@]}"; } >in.json
  $ orvale convert in.json in.cal
  orvale: in.cal: lost: mark of a date that could not be read: 1, first in calendar entry 68
  $ orvale convert --strict in.json a.ics
  orvale: a.ics: 28 recurrences are no rule of iCalendar; other programs show these entries once
  $ orvale convert --strict a.ics out.json
  $ cmp out.json <(orvale show --json in.json)
  $ awk '/^BEGIN:VEVENT/ { start = 0 } /^DTSTART/ { start = 1 } /^END:VEVENT/ && !start' a.ics
  $ LC_ALL=C awk 'length > 76' a.ics
  $ orvale convert in.cal b.ics 2>/dev/null
  $ orvale convert --strict b.ics out.cal
  $ orvale diff in.cal out.cal
  calendar entries: 73 the same

Rules of other programs for an event on Monday, 26 July 2010, 06:00: what a phone holds of them, or why it can't.

  $ rule() {
  >   entry SUMMARY:x 'DTSTART;TZID=Europe/Berlin:20100726T060000' "RRULE:$1"
  >   orvale show in.ics | grep repeats
  >   orvale convert --force in.ics a.cal
  > }
  $ while read -r rule; do echo "$rule"; rule "$rule"; done <<'END'
  > FREQ=DAILY
  > FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR
  > FREQ=DAILY;BYDAY=SU,MO,TU,WE,TH,FR,SA;INTERVAL=2
  > FREQ=WEEKLY
  > FREQ=WEEKLY;WKST=SU;BYDAY=SA,SU
  > FREQ=MONTHLY;INTERVAL=6
  > FREQ=MONTHLY;BYDAY=4MO
  > FREQ=MONTHLY;BYDAY=MO;BYSETPOS=4
  > FREQ=YEARLY;COUNT=3
  > FREQ=YEARLY;BYMONTH=7;BYDAY=4MO
  > FREQ=YEARLY;UNTIL=20120726T040000Z
  > FREQ=YEARLY;UNTIL=20120726
  > FREQ=HOURLY;COUNT=1000000000
  > FREQ=WEEKLY;BYHOUR=9,12
  > FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,SU;WKST=SU
  > FREQ=MONTHLY;BYMONTHDAY=1,15
  > FREQ=MONTHLY;BYMONTHDAY=-1
  > FREQ=MONTHLY;BYDAY=-1MO
  > FREQ=MONTHLY;BYDAY=1MO
  > FREQ=MONTHLY;BYDAY=1MO,3MO
  > FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13
  > FREQ=YEARLY;BYMONTH=1,7
  > FREQ=YEARLY;BYWEEKNO=20
  > FREQ=YEARLY;BYDAY=20MO
  > FREQ=DAILY;COUNT=99999999999
  > FREQ=DAILY;INTERVAL=70000
  > FREQ=SOMETIMES
  > FREQ=DAILY;BYMONTH=7
  > FREQ=WEEKLY;BYMONTH=7
  > FREQ=MONTHLY;BYMONTH=7
  > FREQ=DAILY;INTERVAL=2;BYDAY=MO
  > FREQ=WEEKLY;BYDAY=1MO
  > FREQ=WEEKLY;BYMINUTE=5
  > FREQ=MONTHLY;BYDAY=MO
  > FREQ=MONTHLY;BYDAY=4MO,4TU
  > FREQ=MONTHLY;BYMONTHDAY=26;BYSETPOS=1
  > FREQ=YEARLY;BYMONTH=8;BYDAY=4MO
  > FREQ=YEARLY;BYYEARDAY=200
  > RSCALE=HEBREW;FREQ=YEARLY
  > END
  FREQ=DAILY
    repeats                 every day
  FREQ=DAILY;BYDAY=MO,TU,WE,TH,FR
    repeats                 every workday
  FREQ=DAILY;BYDAY=SU,MO,TU,WE,TH,FR,SA;INTERVAL=2
    repeats                 every 2 days
  FREQ=WEEKLY
    repeats                 every week on Monday
  FREQ=WEEKLY;WKST=SU;BYDAY=SA,SU
    repeats                 every week on Sunday, Saturday
  FREQ=MONTHLY;INTERVAL=6
    repeats                 every 6 months on day 26
  FREQ=MONTHLY;BYDAY=4MO
    repeats                 every month on Monday
  FREQ=MONTHLY;BYDAY=MO;BYSETPOS=4
    repeats                 every month on Monday
  FREQ=YEARLY;COUNT=3
    repeats                 every year on 26 July, 3 times
  FREQ=YEARLY;BYMONTH=7;BYDAY=4MO
    repeats                 every year on Monday in July
  FREQ=YEARLY;UNTIL=20120726T040000Z
    repeats                 every year on 26 July, until 2012-07-26 06:00
  FREQ=YEARLY;UNTIL=20120726
    repeats                 every year on 26 July, until 2012-07-26 06:00
  FREQ=HOURLY;COUNT=1000000000
  orvale: a.cal: lost: recurrences more often than once a day, whose entries stand once: 1, first in in.ics, line 3
  FREQ=WEEKLY;BYHOUR=9,12
  orvale: a.cal: lost: recurrences at other times than that of their start, whose entries stand once: 1, first in in.ics, line 3
  FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,SU;WKST=SU
  orvale: a.cal: lost: recurrences over several weeks that don't begin with Monday, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYMONTHDAY=1,15
  orvale: a.cal: lost: recurrences on several days of a month, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYMONTHDAY=-1
  orvale: a.cal: lost: recurrences counted from the end of the month, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYDAY=-1MO
  orvale: a.cal: lost: recurrences counted from the end of the month, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYDAY=1MO
  orvale: a.cal: lost: recurrences on another weekday than that of their start, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYDAY=1MO,3MO
  orvale: a.cal: lost: recurrences on several weekdays of a month, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13
  orvale: a.cal: lost: recurrences on a day of the month that is a weekday, whose entries stand once: 1, first in in.ics, line 3
  FREQ=YEARLY;BYMONTH=1,7
  orvale: a.cal: lost: recurrences in several months, whose entries stand once: 1, first in in.ics, line 3
  FREQ=YEARLY;BYWEEKNO=20
  orvale: a.cal: lost: recurrences by the number of a week or of a day in the year, whose entries stand once: 1, first in in.ics, line 3
  FREQ=YEARLY;BYDAY=20MO
  orvale: a.cal: lost: recurrences on a weekday counted in the year, whose entries stand once: 1, first in in.ics, line 3
  FREQ=DAILY;COUNT=99999999999
  orvale: a.cal: lost: recurrences with numbers beyond those of a phone: 1, first in in.ics, line 6
  FREQ=DAILY;INTERVAL=70000
  orvale: a.cal: lost: recurrences with numbers beyond those of a phone: 1, first in in.ics, line 6
  FREQ=SOMETIMES
  orvale: a.cal: lost: lines that can't be read: 1, first in in.ics, line 3
  FREQ=DAILY;BYMONTH=7
  orvale: a.cal: lost: recurrences on days of some months alone, whose entries stand once: 1, first in in.ics, line 3
  FREQ=WEEKLY;BYMONTH=7
  orvale: a.cal: lost: recurrences on days of some months alone, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYMONTH=7
  orvale: a.cal: lost: recurrences on days of some months alone, whose entries stand once: 1, first in in.ics, line 3
  FREQ=DAILY;INTERVAL=2;BYDAY=MO
  orvale: a.cal: lost: recurrences on every so many days that are a weekday, whose entries stand once: 1, first in in.ics, line 3
  FREQ=WEEKLY;BYDAY=1MO
  orvale: a.cal: lost: recurrences on a day that is none, whose entries stand once: 1, first in in.ics, line 3
  FREQ=WEEKLY;BYMINUTE=5
  orvale: a.cal: lost: recurrences at other times than that of their start, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYDAY=MO
  orvale: a.cal: lost: recurrences in every week of a month, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYDAY=4MO,4TU
  orvale: a.cal: lost: recurrences on several weekdays of a month, whose entries stand once: 1, first in in.ics, line 3
  FREQ=MONTHLY;BYMONTHDAY=26;BYSETPOS=1
  orvale: a.cal: lost: recurrences on one of several days, whose entries stand once: 1, first in in.ics, line 3
  FREQ=YEARLY;BYMONTH=8;BYDAY=4MO
  orvale: a.cal: lost: recurrences on another weekday than that of their start, whose entries stand once: 1, first in in.ics, line 3
  FREQ=YEARLY;BYYEARDAY=200
  orvale: a.cal: lost: recurrences by the number of a week or of a day in the year, whose entries stand once: 1, first in in.ics, line 3
  RSCALE=HEBREW;FREQ=YEARLY
  orvale: a.cal: lost: recurrences by another calendar than the Gregorian, whose entries stand once: 1, first in in.ics, line 3

Times go through their zones: one that the file defines behind its use, ones of known names, hours that are skipped or
come twice, and rules that are passed over.

  $ starts() {
  >   calendar BEGIN:VEVENT "$1" END:VEVENT BEGIN:VTIMEZONE 'TZID:Mine: own' BEGIN:STANDARD DTSTART:16010101T000000 \
  >     TZOFFSETFROM:+0330 TZOFFSETTO:+0330 END:STANDARD END:VTIMEZONE BEGIN:VTIMEZONE TZID:Busy BEGIN:STANDARD \
  >     DTSTART:16010101T000000 TZOFFSETFROM:+0330 TZOFFSETTO:+0330 RRULE:FREQ=SECONDLY END:STANDARD END:VTIMEZONE \
  >     BEGIN:VTIMEZONE TZID:Summer BEGIN:STANDARD DTSTART:19701025T020000 TZOFFSETFROM:+0100 TZOFFSETTO:+0000 \
  >     'RRULE:FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU' END:STANDARD BEGIN:DAYLIGHT DTSTART:19700329T010000 \
  >     TZOFFSETFROM:+0000 TZOFFSETTO:+0100 'RRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=-1SU' END:DAYLIGHT END:VTIMEZONE
  >   orvale show --json in.ics | grep -o '"dtstart.*'
  > }
  $ while read -r start; do echo "$start"; starts "$start"; done <<'END'
  > DTSTART:20100726T060000
  > DTSTART:20100726T060000Z
  > DTSTART;TZID=America/New_York:20100726T200000
  > DTSTART;TZID="/example.com/2010/America/New_York":20100126T200000
  > DTSTART;TZID="Mine: own":20100726T060000
  > DTSTART;TZID=America/New_York:20100314T023000
  > DTSTART;TZID=America/New_York:20101107T013000
  > DTSTART;TZID=Europe/Berlin:20100328T023000
  > DTSTART;TZID=Nowhere:20100726T060000
  > DTSTART;TZID=Busy:20100726T060000
  > DTSTART;TZID=Summer:20100726T060000
  > DTSTART;TZID=Summer:20100126T060000
  > DTSTART;VALUE=DATE:20100726
  > DTSTART:99991231T235960
  > END
  DTSTART:20100726T060000
  "dtstart": "2010-07-26T06:00:00",
  DTSTART:20100726T060000Z
  "dtstart": "2010-07-26T08:00:00",
  DTSTART;TZID=America/New_York:20100726T200000
  "dtstart": "2010-07-27T02:00:00",
  DTSTART;TZID="/example.com/2010/America/New_York":20100126T200000
  "dtstart": "2010-01-27T02:00:00",
  DTSTART;TZID="Mine: own":20100726T060000
  "dtstart": "2010-07-26T04:30:00",
  DTSTART;TZID=America/New_York:20100314T023000
  "dtstart": "2010-03-14T08:30:00",
  DTSTART;TZID=America/New_York:20101107T013000
  "dtstart": "2010-11-07T06:30:00",
  DTSTART;TZID=Europe/Berlin:20100328T023000
  "dtstart": "2010-03-28T03:30:00",
  DTSTART;TZID=Nowhere:20100726T060000
  "dtstart": "2010-07-26T06:00:00",
  DTSTART;TZID=Busy:20100726T060000
  "dtstart": "2010-07-26T06:00:00",
  DTSTART;TZID=Summer:20100726T060000
  "dtstart": "2010-07-26T07:00:00",
  DTSTART;TZID=Summer:20100126T060000
  "dtstart": "2010-01-26T07:00:00",
  DTSTART;VALUE=DATE:20100726
  "dtstart": "2010-07-26T00:00:00",
  DTSTART:99991231T235960
  "dtstart": "9999-12-31T23:59:59",

Monday evening in New York is Tuesday here, and a day there lasts to its end.

  $ evening='DTSTART;TZID=America/New_York:20100726T200000'
  $ entry "$evening" 'RRULE:FREQ=WEEKLY;BYDAY=MO,SA'; orvale show in.ics | grep repeats
    repeats                 every week on Sunday, Tuesday
  $ entry "$evening" 'RRULE:FREQ=DAILY;UNTIL=20100730'; orvale show in.ics | grep repeats
    repeats                 every day, until 2010-07-31 02:00

Lines of an entry, what a person is shown of them, and what is told to be lost.

  $ said() { orvale show in.ics | head -n -2; orvale convert --force in.ics a.cal; }
  $ todo() { calendar BEGIN:VTODO "$@" END:VTODO; said; }
  $ event() { entry "$@"; said; }
  $ todo COMPLETED:20100726T060000Z
  No date
                 [x] (no description)
  $ todo STATUS:COMPLETED
  No date
                 [x] (no description)
  $ todo STATUS:NEEDS-ACTION
  No date
                 [ ] (no description)
  $ todo PERCENT-COMPLETE:100
  No date
                 [x] (no description)
  $ todo PERCENT-COMPLETE:0
  No date
                 [ ] (no description)
  $ todo PERCENT-COMPLETE:40
  No date
                 [ ] (no description)
  orvale: a.cal: lost: parts of a todo that are done: 1, first in in.ics, line 3
  $ event STATUS:CONFIRMED CLASS:PRIVATE PRIORITY:0
  No date
                 (no description)
    secret                  yes
  $ event CATEGORIES:BIRTHDAY,birthday,
  No date
                 (no description)
    category                birthday
  $ event 'CATEGORIES:BIRTHDAY,PHONE CALL,'
  No date
                 (no description)
    category                birthday
  orvale: a.cal: lost: further categories: 1, first in in.ics, line 3
  $ event DTSTART:20100726T060000 RRULE:FREQ=DAILY RRULE:FREQ=WEEKLY
  Monday, 26 July 2010
    06:00        (no description)
    repeats                 every day
  orvale: a.cal: lost: further rules of a recurrence: 1, first in in.ics, line 3
  $ event RRULE:FREQ=DAILY
  No date
                 (no description)
  orvale: a.cal: lost: recurrences without a start: 1, first in in.ics, line 3
  $ event DTSTART:20100329T060000 'RRULE:FREQ=MONTHLY;BYDAY=-1MO'
  Monday, 29 March 2010
    06:00        (no description)
    repeats                 every month on Monday
  orvale: a.cal: lost: recurrences on the last such weekday of a month, which became the fifth: 1, first in in.ics, line 3
  $ event "$evening" RRULE:FREQ=MONTHLY
  Tuesday, 27 July 2010
    02:00        (no description)
  orvale: a.cal: lost: recurrences on another day in their zone than here, whose entries stand once: 1, first in in.ics, line 3
  $ event DTSTART:20100726T060000 DTEND:20100726T070000 DURATION:PT3H
  Monday, 26 July 2010
    06:00-07:00  (no description)
  $ event DTSTART:00500726T060000
  No date
                 (no description)
  orvale: a.cal: lost: dates that can't be read: 1, first in in.ics, line 3
  $ event DTSTART:20100230T060000
  No date
                 (no description)
  orvale: a.cal: lost: dates that can't be read: 1, first in in.ics, line 3
  $ event DTSTART:20100726T060000 BEGIN:VALARM TRIGGER:-PT90S END:VALARM
  Monday, 26 July 2010
    06:00        (no description)
    alarm                   1 minutes before
  orvale: a.cal: lost: seconds of alarms: 1, first in in.ics, line 3
  $ event BEGIN:VALARM ACTION:AUDIO END:VALARM
  No date
                 (no description)
  orvale: a.cal: lost: alarms that can't be read: 1, first in in.ics, line 3
  $ event BEGIN:VALARM 'TRIGGER;RELATED=END:-PT5M' END:VALARM
  No date
                 (no description)
  orvale: a.cal: lost: alarms that can't be read: 1, first in in.ics, line 3
  $ event BEGIN:VALARM 'TRIGGER;VALUE=DATE-TIME:20100726T033000Z' END:VALARM
  No date
                 (no description)
  orvale: a.cal: lost: alarms that can't be read: 1, first in in.ics, line 3
  $ event X-ORVALE-DURATION:x X-ORVALE-NONE:x X-ORVALE-FIELD:x
  No date
                 (no description)
  orvale: a.cal: lost: lines that can't be read: 3, first in in.ics, line 3

What has no place is told.

  $ calendar X-WR-CALNAME:Mine BEGIN:VEVENT UID:1 DTSTAMP:20100726T060000Z DTSTART:20100726T060000 DURATION:PT1H30M \
  >   'SUMMARY:Long ' ' line' DESCRIPTION: PRIORITY:3 CLASS:CONFIDENTIAL STATUS:TENTATIVE 'CATEGORIES:WORK,Sick day' \
  >   EXDATE:20100727T060000 RDATE:20100728T060000 ATTACH:http://x ATTENDEE:mailto:a@b X-FOO:1 'SUMMARY;X' BEGIN:VALARM \
  >   'TRIGGER;RELATED=END:-PT30M' END:VALARM BEGIN:VALARM 'TRIGGER;VALUE=DATE-TIME:20100726T033000Z' END:VALARM \
  >   BEGIN:VALARM TRIGGER:PT0S END:VALARM BEGIN:X-PART SUMMARY:no END:X-PART END:VEVENT BEGIN:VJOURNAL SUMMARY:no \
  >   END:VJOURNAL
  $ said
  Monday, 26 July 2010
    06:00-07:30  Long line
    alarm                   60 minutes after
    priority                high
    category                sick day
    secret                  yes
  orvale: a.cal: lost: alarms at the start itself: 1, first in in.ics, line 4
  orvale: a.cal: lost: attachments: 1, first in in.ics, line 18
  orvale: a.cal: lost: categories that a phone doesn't know: 1, first in in.ics, line 4
  orvale: a.cal: lost: exceptions of a recurrence: 1, first in in.ics, line 16
  orvale: a.cal: lost: further alarms: 1, first in in.ics, line 4
  orvale: a.cal: lost: further dates of a recurrence: 1, first in in.ics, line 17
  orvale: a.cal: lost: lines of a kind that no phone knows: X-FOO: 1, first in in.ics, line 20
  orvale: a.cal: lost: lines of the calendar that belong to no entry: X-WR-CALNAME: 1, first in in.ics, line 3
  orvale: a.cal: lost: lines that can't be read: 1, first in in.ics, line 21
  orvale: a.cal: lost: marks 'confidential', which became secret: 1, first in in.ics, line 4
  orvale: a.cal: lost: parts of an entry: X-PART: 1, first in in.ics, line 31
  orvale: a.cal: lost: parts of the calendar that are no entry: VJOURNAL: 1, first in in.ics, line 35
  orvale: a.cal: lost: people who take part: 1, first in in.ics, line 19
  orvale: a.cal: lost: priorities between those of a phone: 1, first in in.ics, line 4
  orvale: a.cal: lost: states of an entry (tentative, cancelled, begun): 1, first in in.ics, line 4

What another program changed wins over what we had put beside it.

  $ event 'SUMMARY;X-ORVALE-EXACT=old%20:new' 'DTSTART;X-ORVALE-DATE=40385.250001:20100727T060000' RRULE:FREQ=DAILY \
  >   'X-ORVALE-RECURRENCE:2 0 0 0 0 62 1 0 0 0'
  Tuesday, 27 July 2010
    06:00        new
    repeats                 every day

A vCalendar of many items is one of these, and a folder of vCalendars takes it along.

  $ one=(BEGIN:VCALENDAR VERSION:1.0 BEGIN:VEVENT 'SUMMARY;ENCODING=QUOTED-PRINTABLE:One=3B=0D=0Atwo' END:VEVENT)
  $ mkdir all; lines "${one[@]}" END:VCALENDAR >all/1.vcs
  $ lines "${one[@]}" BEGIN:VTODO 'SUMMARY;CHARSET=ISO-8859-1;QUOTED-PRINTABLE:Caf=E9, l=' ' ang' DUE:20080317T073000Z \
  >   STATUS:COMPLETED PRIORITY:2 END:VTODO BEGIN:VEVENT SUMMARY:Fold '  ed\\; so' DTSTART:20080317T073000Z \
  >   'RRULE:MP2 3+ MO #4' 'AALARM;TYPE=X:20080317T070000Z;;;x' 'CATEGORIES:PHONE CALL' CLASS:PRIVATE END:VEVENT \
  >   BEGIN:VEVENT DTSTART:20080318T073000Z 'RRULE:W1 TU 0900 #0' END:VEVENT END:VCALENDAR >all/2.vcs
  $ orvale info all/1.vcs all/2.vcs
  all/1.vcs: vcalendar (calendar), version 100, VERIFY_OK (0), 1 record
  all/2.vcs: ics (calendar), version 1, VERIFY_OK (0), 4 records
  $ orvale convert --force all/2.vcs a.cal
  orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in all/2.vcs, line 24
  $ orvale show a.cal
  Monday, 17 March 2008
    08:30        Fold  ed; so
    repeats                 every 2 months on Monday, 4 times
    alarm                   30 minutes before
    category                phone call
    secret                  yes
  
  Tuesday, 18 March 2008
    08:30        (no description)
  
  No date
                 One;
                 two
                 [x] Café, l ang
    ends                    2008-03-17 08:30
    priority                high
  
  4 calendar entries
  $ orvale convert all all.ics 2>&1 | grep passed
  [1]
  $ orvale info all.ics
  all.ics: ics (calendar), version 1, VERIFY_OK (0), 5 records

Rules as version 1.0 writes them, for an event on Monday, 17 March 2008.

  $ while read -r rule; do
  >   echo "$rule"
  >   lines BEGIN:VCALENDAR VERSION:1.0 BEGIN:VEVENT DTSTART:20080317T073000Z "RRULE:$rule" END:VEVENT END:VCALENDAR >in.vcs
  >   orvale convert --force --from ics in.vcs a.cal
  >   orvale show a.cal | grep repeats
  > done <<'END'
  > D1
  > d2 #5
  > W1 MO #0
  > W1 MO 20081231T000000
  > MD1 17 #3
  > MP1 3+ MO #3
  > YM1 3 #0
  > MD1 LD #3
  > MD1 1- #3
  > YD1 77 #0
  > X1 #0
  > D
  > DX
  > W1 XX
  > MD1 5* #0
  > END
  D1
    repeats                 every day, 2 times
  d2 #5
    repeats                 every 2 days, 5 times
  W1 MO #0
    repeats                 every week on Monday
  W1 MO 20081231T000000
    repeats                 every week on Monday, until 2008-12-31 00:00
  MD1 17 #3
    repeats                 every month on day 17, 3 times
  MP1 3+ MO #3
    repeats                 every month on Monday, 3 times
  YM1 3 #0
    repeats                 every year on 17 March
  MD1 LD #3
  orvale: a.cal: lost: recurrences counted from the end of the month, whose entries stand once: 1, first in in.vcs, line 3
  MD1 1- #3
  orvale: a.cal: lost: recurrences counted from the end of the month, whose entries stand once: 1, first in in.vcs, line 3
  YD1 77 #0
  orvale: a.cal: lost: recurrences by the number of a week or of a day in the year, whose entries stand once: 1, first in in.vcs, line 3
  X1 #0
  orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in in.vcs, line 5
  D
  orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in in.vcs, line 5
  DX
  orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in in.vcs, line 5
  W1 XX
  orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in in.vcs, line 5
  MD1 5* #0
  orvale: a.cal: lost: lines that can't be read: RRULE: 1, first in in.vcs, line 5
  [1]

A file cut off anywhere gives the entries before it, and tells that it is damaged.

  $ calendar BEGIN:VEVENT SUMMARY:a END:VEVENT BEGIN:VTODO SUMMARY:b END:VTODO
  $ for size in $(seq 15 3 $(stat -c %s in.ics)); do
  >   head -c $size in.ics >cut.ics
  >   orvale info --format ics cut.ics 2>/dev/null | grep -o '[0-9]* record.*'
  > done | uniq -c
       17 0 records, damaged end
       12 1 record, damaged end
        5 2 records, damaged end
        1 2 records

Files that cost nothing, whatever they say: the entry behind is read.

  $ bounded() {
  >   lines BEGIN:VCALENDAR VERSION:2.0 BEGIN:VEVENT >in.ics
  >   cat >>in.ics
  >   lines END:VEVENT BEGIN:VEVENT SUMMARY:behind END:VEVENT END:VCALENDAR >>in.ics
  >   TZ=UTC timeout 60 orvale convert --force in.ics a.cal
  >   orvale show a.cal | grep behind
  > }
  $ yes BEGIN:A | head -n 20000 | bounded
  orvale: a.cal: lost: entries without an end: 1, first in in.ics, line 3
  orvale: a.cal: lost: parts of an entry: A: 1, first in in.ics, line 4
                 behind
  $ { echo -n DESCRIPTION:; head -c 2M /dev/zero | tr '\0' x; echo; } | bounded
  orvale: a.cal: lost: lines of more than 262144 bytes: 1, first in in.ics, line 4
                 behind
  $ { echo DESCRIPTION:x; yes ' x' | head -n 300000; } | bounded
  orvale: a.cal: lost: lines of more than 262144 bytes: 1, first in in.ics, line 4
                 behind
  $ yes SUMMARY:abcdef | head -n 100000 | bounded
  orvale: a.cal: lost: entries of more than a mebibyte: 1, first in in.ics, line 3
                 behind
