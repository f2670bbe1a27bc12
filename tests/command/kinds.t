  $ . "$TESTDIR/setup.sh"

A record with every field set to a value of its own.

  $ document calendar '{"itemType": 1, "fields": [{"type": 3000, "data": "Frühstück 山田", "number": -2},
  >   {"type": 99, "data": ""}], "dtstart": "2010-07-26T06:00:00", "dtend": 40385.3125001, "ringid": 3,
  >   "ring": "Bells", "vibration": 4, "secret": 5, "duration": 6, "recurtype": 2, "recurday": 8, "recurmonth": 9,
  >   "recurinstance": 10, "recurweekday": 11, "recurweekmask": 12, "recurinterval": 13, "recurrepeat": 14,
  >   "recurenddate": "nan", "recurhasenddate": -15, "remindermin": 16, "priority": 2, "complete": 17,
  >   "reserve1": 18, "reserve2": 19, "category": 14}' >calendar.json
  $ document sms '{"storageid": 1, "status": -2, "listtype": 3, "phonenumber": "+49 170", "content": "Hallo\r\n😀",
  >   "time": "2010-07-26 06:00:15", "name": "Ann", "smstype": 7}' >sms.json
  $ document email '{"type": 53, "box": "In", "device": 2, "status": 65537, "account": "<id>1</id>", "folder": "Old",
  >   "from": "a@b", "to": "c@d", "cc": "e@f", "bcc": "g@h", "subject": "Grüße", "body": "Text",
  >   "received": "2010-07-26T06:00:15", "sent": null, "accessory": ["a.jpg", ""], "importance": 3, "symbol": 7,
  >   "sensitivity": 4, "entryid": "id-1"}' >email.json

It goes through the native file unchanged, but for the type of a message, which has no place there.

  $ for native in calendar.cal sms.sms email.eml; do
  >   orvale convert ${native%.*}.json a.${native#*.}
  >   orvale info a.${native#*.}
  >   cmp <(orvale show --json a.${native#*.} | sed 's/"smstype": 0/"smstype": 7/') <(orvale show --json ${native%.*}.json)
  > done
  a.cal: cal (calendar), version 101, VERIFY_OK (0), 1 record
  orvale: a.sms: lost: type of the message: 1, first in message 1
  a.sms: sms (sms), version 101, VERIFY_OK (0), 1 record
  a.eml: eml (email), version 100, VERIFY_OK (0), 1 record

A vCalendar has no place for most of an entry.

  $ orvale convert calendar.json a.vcs
  orvale: a.vcs: lost: alarm: 1, first in calendar entry 1
  orvale: a.vcs: lost: category: 1, first in calendar entry 1
  orvale: a.vcs: lost: completion: 1, first in calendar entry 1
  orvale: a.vcs: lost: date or weekday of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: day of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: duration: 1, first in calendar entry 1
  orvale: a.vcs: lost: end of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: first reserved number: 1, first in calendar entry 1
  orvale: a.vcs: lost: interval of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: month of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: number of a text: 1, first in calendar entry 1
  orvale: a.vcs: lost: number of the ring tone: 1, first in calendar entry 1
  orvale: a.vcs: lost: recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: repetitions of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: ring tone: 1, first in calendar entry 1
  orvale: a.vcs: lost: second reserved number: 1, first in calendar entry 1
  orvale: a.vcs: lost: secret: 1, first in calendar entry 1
  orvale: a.vcs: lost: text of type 99: 1, first in calendar entry 1
  orvale: a.vcs: lost: vibration: 1, first in calendar entry 1
  orvale: a.vcs: lost: weekday of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: weekdays of the recurrence: 1, first in calendar entry 1
  orvale: a.vcs: lost: whether the recurrence ends: 1, first in calendar entry 1
  orvale: a.vcs: changed: end: 1, first in calendar entry 1
  orvale: a.vcs: changed: event or todo: 1, first in calendar entry 1
  $ orvale convert --strict --force calendar.json a.vcs 2>&1 | tail -n 1
  orvale: a.vcs: not written, for --strict takes no loss
  $ grep -v REV a.vcs
  BEGIN:VCALENDAR\r (esc)
  PRODID:\r (esc)
  VERSION:1.0\r (esc)
  BEGIN:VEVENT\r (esc)
  DTSTART:20100726T060000Z\r (esc)
  DTEND:20100726T073000Z\r (esc)
  PRIORITY:2\r (esc)
  SUMMARY;ENCODING=QUOTED-PRINTABLE:Frühstück 山田\r (esc)
  END:VEVENT\r (esc)
  END:VCALENDAR\r (esc)

A cut message is neither counted nor shown, wherever the cut is.

  $ orvale convert --force sms.json sms.json a.sms 2>/dev/null
  $ for cut in 1 2 20 38 92 101; do
  >   head -c -$cut a.sms >cut.sms
  >   orvale info cut.sms 2>&1 || echo $?
  > done | sort | uniq -c
        6 1
        6 cut.sms: sms (sms), version 101, VERIFY_OK (0), 1 record, damaged end
        6 orvale: cut.sms: record 2, byte 118: damaged from here on

Several calendar entries go to a new folder, a file each, and come back in the order of their numbers.

  $ for i in {1..12}; do echo "{\"itemType\": 0, \"fields\": [{\"type\": 3000, \"data\": \"entry $i\"}]}"; done |
  >   { mapfile -t entries; document calendar "${entries[@]}"; } >in.json
  $ orvale convert --strict --to vcalendar in.json out
  $ ls out | sed -n '1p;$='
  00001.vcs
  12
  $ mv out/00002.vcs out/2.vcs; mv out/00012.vcs out/12.vcs; echo nothing of ours >out/note.txt
  $ orvale convert --strict out back.cal
  orvale: out/note.txt: passed over, for it is no file of the format vcalendar
  $ orvale show back.cal | grep -o 'entry .*' | paste -sd' '
  entry 1 entry 2 entry 3 entry 4 entry 5 entry 6 entry 7 entry 8 entry 9 entry 10 entry 11 entry 12
  $ orvale info --json out 2>/dev/null | grep '"file"' | head -n 2
      "file": "out/00001.vcs",
      "file": "out/2.vcs",
  $ orvale convert --force --to vcalendar in.json out
  orvale: out: is a folder
  [1]
  $ echo old >file.vcs
  $ orvale convert --force in.json file.vcs
  orvale: file.vcs: is a file, and several records go to a new folder
  [1]
  $ cat file.vcs
  old
  $ ls -A | grep '^\.orvale'
  [1]

A vCalendar without an entry is a failure.

  $ lines BEGIN:VCALENDAR PRODID: VERSION:2.0 END:VCALENDAR >none.vcs
  $ orvale show --format vcalendar none.vcs
  orvale: none.vcs: holds no record of the format vcalendar
  [1]
  $ orvale info --format vcalendar none.vcs
  orvale: none.vcs: holds no record of its format
  none.vcs: vcalendar (calendar), version 100, VERIFY_OK (0), 0 records
  [1]
  $ orvale convert --from vcalendar none.vcs none.cal
  orvale: none.vcs: holds no record of the format vcalendar
  [1]
  $ document calendar >none.json
  $ orvale convert none.json none2.vcs
  orvale: none2.vcs: there is no record to write, and the format vcalendar needs one
  [1]
  $ orvale convert none.json none.cal

Its dates go through the zone, and one that can't be read leaves a mark.

  $ lines BEGIN:VCALENDAR VERSION:1.0 BEGIN:VEVENT DTSTART:20100726T060015Z DTEND:2010 END:VEVENT END:VCALENDAR >in.vcs
  $ TZ=Europe/Berlin orvale show --json in.vcs | grep -E 'dtstart|operation'
        "dtstart": "2010-07-26T08:00:15",
        "operation": 4
  $ orvale convert --force in.vcs a.cal
  orvale: a.cal: lost: mark of a date that could not be read: 1, first in calendar entry 1

Nothing of one goes in silence.

  $ lines BEGIN:VCALENDAR PRODID:x VERSION:1.0 BEGIN:VEVENT 'SUMMARY;ENCODING=QUOTED-PRINTABLE:a=' b RRULE:D1 \
  >   'LOCATION;ENCODING=QUOTED-PRINTABLE:\0377' END:VEVENT BEGIN:VTODO END:VTODO END:VCALENDAR >in.vcs
  $ orvale convert --force --from vcalendar in.vcs a.cal
  orvale: a.cal: lost: bytes that code page 65001 doesn't have: 1, first in in.vcs, line 8
  orvale: a.cal: lost: entries behind the first, which became one with it: 1, first in in.vcs, line 10
  orvale: a.cal: lost: lines with an unknown key, which joined the value before them: 1, first in in.vcs, line 7

An agenda by day.

  $ document calendar '{"itemType": 0, "fields": [{"type": 3000, "data": "Later"}], "dtstart": "2010-07-27T10:00:00",
  >   "dtend": "2010-07-28T10:00:00", "recurtype": 2, "recurweekmask": 62, "recurinterval": 0, "recurrepeat": 5}' \
  >   '{"fields": [], "dtstart": 1e300}' '{"itemType": 0, "fields": [{"type": 3000, "data": "First\nline"},
  >   {"type": 3003, "data": "Café"}], "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T07:30:00",
  >   "recurtype": 4, "recurinstance": 1, "recurmonth": 7, "recurweekmask": 2, "remindermin": 15, "secret": 1}' \
  >   '{"itemType": 1, "fields": [{"type": 3000, "data": "Todo"}], "complete": 1}' >in.json
  $ orvale show in.json
  Monday, 26 July 2010
    06:00-07:30  First
                 line
    location                Café
    repeats                 every year on Monday in July
    alarm                   15 minutes before
    secret                  yes
  
  Tuesday, 27 July 2010
    10:00        Later
    ends                    2010-07-28 10:00
    repeats                 every workday, 5 times
  
  Out of range: 1.0000000000000001e+300
                 (no description)
  
  No date
                 [x] Todo
  
  4 calendar entries

Messages are a list, and emails are blocks.

  $ orvale show sms.json
  2010-07-26 06:00:15  draft       Ann <+49 170>  status -2  phone memory  type 7
      Hallo
      😀
  
  1 message
  $ orvale show email.json
  Grüße
    from                    a@b
    to                      c@d
    cc                      e@f
    bcc                     g@h
    received                2010-07-26 06:00:15
    box                     In, custom box 3, Old
    status                  read, not deleted
    storage                 SIM card
    account                 <id>1</id>
    importance              high
    flag                    purple
    sensitivity             confidential
    attachments             a.jpg, 
    identifier              id-1
  
      Text
  
  1 email
