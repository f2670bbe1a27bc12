Other programs take what is written, and what they write is read. Skipped where they aren't
installed: they are packages of the system's own Python.

  $ . "$TESTDIR/setup.sh"
  $ /usr/bin/python3 -c 'import icalendar, vobject' 2>/dev/null || exit 80
  $ orvale convert --strict "$samples/calendar.cal" a.ics
  $ /usr/bin/python3 - <<'END'
  > import icalendar, vobject
  > data = open('a.ics', 'rb').read()
  > entries = [c for c in icalendar.Calendar.from_ical(data).walk() if c.name in ('VEVENT', 'VTODO')]
  > print(len(entries), entries[1]['RRULE'].to_ical(), entries[0]['LOCATION'])
  > print(entries[1]['DESCRIPTION'])
  > print(entries[0].walk('VALARM')[0]['TRIGGER'].to_ical())
  > open('back1.ics', 'wb').write(icalendar.Calendar.from_ical(data).to_ical())
  > parsed = vobject.readOne(data.decode('utf-8'))
  > print(len(parsed.vevent_list), len(parsed.vtodo_list))
  > open('back2.ics', 'w', newline='').write(parsed.serialize(validate=False))
  > END
  6 b'FREQ=WEEKLY;UNTIL=20081229T000000;BYDAY=MO' Café Zentral
  Bring the figures of last week.
  Room is booked until noon.
  b'-PT30M'
  4 2

They put the properties into an order of their own.

  $ shown() { orvale show $1 | sort; }
  $ cmp <(shown a.ics) <(shown back1.ics)
  $ cmp <(shown a.ics) <(shown back2.ics)
