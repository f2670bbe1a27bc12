  $ . "$TESTDIR/setup.sh"
  $ document contacts "$(contact 5=Ann)" >a.json
  $ document sms '{"phonenumber": "1", "content": "Hi"}' >b.json
  $ title() { grep -o '<title>.*</title>' "$1"; }

Files of several kinds make one page, which replaces another only on demand.

  $ orvale view --output all.html a.json b.json
  $ title all.html
  <title>Contacts, Messages</title>
  $ orvale view --output all.html a.json
  orvale: all.html: exists already; --force replaces it
  [1]
  $ orvale view --force --output all.html a.json
  $ title all.html
  <title>Contacts</title>

Of a damaged file there is what stands before the damage.

  $ printf %s '{"orvale": 1, "kind": "sms", "records": [{"content": "whole"}, {"content": "cu' >cut.json
  $ orvale view --output cut.html cut.json
  orvale: cut.json: record 2, byte 61: damaged from here on
  [1]
  $ grep -o '>whole<' cut.html
  >whole<
  >whole<

Columns are known by a profile.

  $ lines Handy 4711 >in.csv
  $ echo '{"columns": [{"caption": "Handy", "type": 104}]}' >columns.json
  $ orvale view --output columns.html --profile columns.json b.json in.csv
  $ grep -o '"tel:4711"' columns.html
  "tel:4711"

A page is a format that is only written.

  $ orvale convert --strict a.json a.html
  $ grep -c '>Ann<' a.html
  1
  $ orvale show a.html
  orvale: a.html: the format html is only written, never read
  [1]
  $ orvale convert --from html a.html x.json
  orvale: the format html is only written, never read
  [2]
  $ orvale info - --format html </dev/null
  orvale: the format html is only written, never read
  [2]

The page's policy names its style and its script, by the hashes of the text between the tags, and nothing else.

  $ page=$(<a.html)
  $ for name in style script; do
  >   inner=${page#*<$name>}
  >   sum=$(printf %s "${inner%%</$name>*}" | sha256sum | head -c 64 | sed 's/../\\x&/g')
  >   echo "$name-src &#39;sha256-$(printf "$sum" | base64)&#39;"
  > done >policy
  $ grep -o "default-src &#39;none&#39;;" a.html
  default-src &#39;none&#39;;
  $ grep -oFf policy a.html | diff policy -

The desktop opens the page, which nobody else may read and which outlives the command.

  $ mkdir bin
  $ printf '#!/bin/sh\nprintf "%%s\\n" "$1" >opened\n' >bin/xdg-open
  $ chmod +x bin/xdg-open
  $ TMPDIR=$PWD PATH=$PWD/bin:$PATH orvale view a.json >page
  $ cmp page opened
  $ stat -c %A orvale-*.html
  -rw-------
  $ grep -c '>Ann<' "$(cat page)"
  1
  $ TMPDIR=$PWD PATH=$PWD/none "$(type -P orvale)" view a.json
  orvale: */orvale-*.html: the page is here; there is no xdg-open to open it with (glob)
  [1]
  $ printf '#!/bin/sh\nexit 3\n' >bin/xdg-open
  $ TMPDIR=$PWD PATH=$PWD/bin:$PATH orvale view a.json
  orvale: */orvale-*.html: the page is here; xdg-open found no browser to open it with (glob)
  [1]

The words of a page's records, with bars for the marks between them: records that lack something, or hold what nobody
would expect.

  $ words() {
  >   document "$@" >in.json
  >   orvale convert --force in.json out.html
  >   sed -zE 's/.*<main/<main/; s/(.*)<\/main>.*/\1/; s/\n?<[^>]*>(\n?<[^>]*>)*/|/g' out.html
  >   echo
  > }
  $ words contacts
  |Search|Contacts|There are no contacts in here.|
  $ words sms
  |Search|Messages|There are no messages in here.|
  $ words email
  |Search|Mail|There are no mails in here.|
  $ words calendar
  |Search|Calendar|Months|Agenda|To do|Months|No entry of this calendar has a date.|Agenda|There are no events in here.|To do|There is nothing to do in here.|
  $ words calendar '{"fields": [{"type": 3000, "data": "", "number": 70001}], "operation": 4, "complete": 1}'
  |Search|Calendar|Months|Agenda|To do|Months|No entry of this calendar has a date.|Agenda|Without a day|No date|No description|Completed|A date of this entry could not be read|Description, number|70001|Description|(empty)|Event or todo|-1|To do|There is nothing to do in here.|
  $ words calendar '{"dtstart": 1e300}' '{"dtend": "2008-03-01T11:30:00"}' '{"itemType": 1}'
  |Search|Calendar|Months|Agenda|To do|Months|No entry of this calendar has a date.|Agenda|Without a day|Out of range: 1.0000000000000001e+300|No description|Event or todo|-1|No date|No description|until 2008-03-01 11:30|Event or todo|-1|To do|Open|No description|
  $ words calendar '{"recurtype": 4, "recurday": 23, "recurmonth": 5, "dtstart": "1949-05-23T00:00:00"}' \
  >   '{"recurtype": 4, "recurday": 1, "recurmonth": 2, "dtstart": "1950-02-01T00:00:00"}' \
  >   '{"dtstart": "2008-03-01T11:30:00"}' | sed 's/.*|Agenda/|Agenda/'
  |Agenda|March 2008|1|Sat|, Saturday, 1 March 2008|No description|11:30|Event or todo|-1|Every year|1|Feb 1950|, Wednesday, 1 February 1950|No description|All day|Repeats: |every year on 1 February|Event or todo|-1|Recurrence|type 4, day 1, month 2, instance 0, weekday 0, weekdays 0, interval 1, times 0, ends 0 |23|May 1949|, Monday, 23 May 1949|No description|All day|Repeats: |every year on 23 May|Event or todo|-1|Recurrence|type 4, day 23, month 5, instance 0, weekday 0, weekdays 0, interval 1, times 0, ends 0 |To do|There is nothing to do in here.|
  $ words calendar '{"itemType": 1, "dtstart": "2010-07-26T00:00:00", "complete": 1}' \
  >   '{"itemType": 0, "dtstart": "2010-07-26T00:00:00", "dtend": "2010-07-28T00:00:00"}' \
  >   '{"itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": 1e300}' \
  >   '{"itemType": 0, "dtstart": "2010-07-26T06:00:00", "dtend": "2010-07-26T06:00:00"}' | sed 's/.*|Agenda/|Agenda/'
  |Agenda|July 2010|26|Mon|, Monday, 26 July 2010|No description|All day \xe2\x80\x93 28 July 2010|No description|06:00 \xe2\x80\x93 1.0000000000000001e+300|No description|06:00|To do|Done|No description|due 26 July 2010| (esc)
  $ words email '{}' '{"type": 2, "sensitivity": 1}' '{"type": 1, "from": "\"Lee, Ann\" <a@b>", "sent": 1e300,
  >   "sensitivity": 4}' '{"box": "A"}' '{"box": "A", "subject": "s"}'
  |Search|Mail|A| |2|U|Unknown|(no subject)|U|Unknown|s|No box| |1|U|Unknown|(no subject)|Inbox| |1|LA|Lee, Ann|(no subject)|Outbox| |1|NY|Nobody yet|(no subject)|Back to the mails|(no subject)|U|Box|A, box type 0|This mail has no text.|Back to the mails|s|U|Box|A, box type 0|This mail has no text.|Back to the mails|(no subject)|U|Box|, box type 0|This mail has no text.|Back to the mails|(no subject)|LA|From|&quot;Lee, Ann&quot; &lt;a@b&gt;|Sent|1.0000000000000001e+300|Box|, box type 1|Sensitivity: confidential|This mail has no text.|Back to the mails|(no subject)|NY|Box|, box type 2|Sensitivity|normal|This mail has no text.|
  $ words sms '{"phonenumber": "+491715550001", "name": "Bo", "time": "2008-03-17 18:04:12"}' \
  >   '{"phonenumber": "+491715550001", "name": "Robert", "time": "2008-03-17 19:04:12", "content": "c"}' \
  >   '{"phonenumber": "01715550001", "time": "2008-03-18 18:04:12", "name": "Rob"}' \
  >   '{"listtype": 77, "phonenumber": "+", "time": "2008"}'
  |Search|Messages|R|Rob|18 Mar 2008|, |3| messages|+|, |1| messages|Back to the conversations|R|Rob|+491715550001| \xc2\xb7&#32;|01715550001| \xc2\xb7&#32;3 messages|Monday, 17 March 2008|Bo|Received: |No text|No box|&#32;|18:04|Robert|Received: |c|No box|&#32;|19:04|Tuesday, 18 March 2008|Rob|Received: |No text|No box|&#32;|18:04|Back to the conversations|+|1 message|No date|Received: |No text|Box 77|&#32;|2008| (esc)
  $ words sms $(yes '{"phonenumber":"110","content":"x"}' | head -n 101) | grep -o '|101 messages|'
  |101 messages|
  $ words contacts '{"fields": [{"type": 2000, "data": "PO 1;Back;Way 1;Town;Region;123;Land"},
  >     {"type": 5, "data": "", "groups": [{"id": 7, "name": ""}]}, {"type": 4003, "data": "1965-03-14"}]}' \
  >   '{"fields": [{"type": 5, "data": "B"}, {"type": 2010, "data": "Street"}, {"type": 2012, "data": "Town"},
  >     {"type": 2014, "data": "9"}]}' '{"fields": [{"type": 5, "data": "C"}, {"type": 2000, "data": "a;b;c"}]}'
  |Search|Contacts|B|C|P|B|B|B|Work address|Street
  9 Town|Work street|Street|Work city|Town|Work postcode|9|C|C|C|Home address|a
  b
  c|P|PT|PO 1;Back;Way 1;Town;Region;123;Land|group 7|Home address|PO 1
  Back
  Way 1
  123 Town
  Region
  Land|Birthday|14 March 1965|Full name|(empty)|Group|7 |

Everything that a record says stands in the page.

  $ words calendar '{"itemType": 0, "dtstart": "2008-02-29T10:00:00", "dtend": "2008-03-01T11:30:00", "ring": "song",
  >   "ringid": 70001, "vibration": 70002, "duration": 70003, "recurtype": 6, "recurday": 70004, "recurmonth": 70005,
  >   "recurinstance": 70006, "recurweekday": 70007, "recurweekmask": 70008, "recurinterval": 70009,
  >   "recurrepeat": 70010, "remindermin": 70011, "priority": 70012, "reserve1": 70013, "reserve2": 70014,
  >   "category": 70015, "fields": [{"type": 3000, "data": "A"}, {"type": 3000, "data": "B"}, {"type": 3002, "data": "C"},
  >   {"type": 3003, "data": "D"}, {"type": 3004, "data": "E"}, {"type": 3012, "data": "F"},
  >   {"type": 4711, "data": "G"}]}' | sed 's/.*|Agenda/|Agenda/'
  |Agenda|February 2008|29|Fri|, Friday, 29 February 2008|A|10:00 \xe2\x80\x93 1 March 2008, 11:30|Location: |D|Web address: |E|Phone number: |F|Text of type 4711: |G|Repeats: |yearly, nth (day 70004, month 70005, instance 70006, weekday 70007, weekdays 70008, interval 70009), 70010 times|Alarm: |70011 minutes before|B|C|70015|70012 priority|Recurrence|type 6, day 70004, month 70005, instance 70006, weekday 70007, weekdays 70008, interval 70009, times 70010, ends 0 |Ring tone|song|Number of the ring tone|70001|Vibration|70002|Duration|70003|First reserved number|70013|Second reserved number|70014|To do|There is nothing to do in here.| (esc)
  $ grep -o 'datetime="[^"]*"' out.html
  datetime="2008-02-29"
  $ words sms '{"storageid": 70017, "status": 70018, "listtype": 70016, "smstype": 70019, "phonenumber": "+15550100",
  >   "name": "Zoë", "time": "2008-03-17 18:04:12", "content": "Hi\r\nthere"}'
  |Search|Messages|Z|Zo\xc3\xab|17 Mar 2008|Hi there|, |1| messages|Back to the conversations|Z|Zo\xc3\xab|+15550100| \xc2\xb7&#32;1 message|Monday, 17 March 2008|Received: |Hi (esc)
  there|Box 70016|&#32;|70017|&#32;|status 70018|&#32;|type 70019|&#32;|18:04|
  $ grep -o 'datetime="[^"]*"' out.html
  datetime="2008-03-17T18:04:12"
  $ words email '{"type": 70020, "device": 70021, "importance": 70022, "symbol": 70023, "sensitivity": 70024,
  >   "status": 256, "sent": "2008-03-17T07:02:11", "box": "A", "account": "B", "folder": "C", "from": "D", "to": "E",
  >   "cc": "F", "bcc": "G", "subject": "H", "body": "I", "entryid": "J", "accessory": ["K"]}'
  |Search|Mail|A| |1|D|D|17 Mar 2008|H|I|Back to the mails|H|D|From|D|To|E|Cc|F|Bcc|G|Sent|Monday, 17 March 2008, 07:02:11|Box|A, box type 70020|Status|0x100|Storage|70021|Account|B|Identifier|J|C|Importance: 70022|Flag: 70023|Sensitivity: 70024|I|K|

A card says once what its title, or the line below it, says: the given name stands among the phone's own numbers.

  $ document contacts "$(contact '5=Dr Ann Lee' 1=Ann 2=Leeds)" >in.json
  $ orvale convert --force in.json out.html
  $ grep -oE '<div[^>]*><dt><span>(Given|Family) name' out.html
  <div class="x"><dt><span>Given name

Messages are threads by the other party, as the contacts and the messages name it.

  $ sms() { printf '{"phonenumber": "%s", "time": "%s", "content": "%s", "name": "%s", "listtype": %s},' "$@"; }
  $ messages=$(sms +49171555 '2008-03-17 18:04:12' second '' 1; sms '+49 (171) 555' '2008-03-17 18:06' third '' 4
  >   sms 0049171555 2008/3/9 first '' 1; sms +49171555 yesterday undated '' 1
  >   sms +491713920055 '2008-03-18 10:00:00' whole Bo 1; sms 01713920055 '2008-03-18 09:00:00' national '' 1
  >   sms +431715550001 '2008-01-01 00:00:00' one '' 1; sms +491715550001 '2008-01-02 00:00:00' other '' 1
  >   sms 01715550001 '2008-01-03 00:00:00' either '' 1; sms INFO '2007-01-01 00:00:00' service '' 1
  >   sms '' '' draft '' 3)
  $ document sms "${messages%,}" >in.json
  $ document contacts "$(contact 5=Ann '104=0049 171-555')" >ann.json
  $ orvale view --force --output out.html ann.json in.json
  $ sed 's/></>\n</g' out.html | grep -oE '^<h3 id="th[^/]*|^<h4>[^/]*|^<p dir="auto">[^/]*|^<li class="m [^>]*|^<bdi>yes[^/]*'
  <h3 id="th0" dir="auto">Bo<
  <h4>Tuesday, 18 March 2008<
  <li class="m u i"
  <p dir="auto">national<
  <li class="m u i"
  <p dir="auto">whole<
  <h3 id="th1" dir="auto">Ann<
  <h4>Sunday, 9 March 2008<
  <li class="m u i"
  <p dir="auto">first<
  <h4>Monday, 17 March 2008<
  <li class="m u i"
  <p dir="auto">second<
  <li class="m u o"
  <p dir="auto">third<
  <h4>No date<
  <li class="m u i"
  <p dir="auto">undated<
  <bdi>yesterday<
  <h3 id="th2" dir="auto">01715550001<
  <h4>Thursday, 3 January 2008<
  <li class="m u i"
  <p dir="auto">either<
  <h3 id="th3" dir="auto">+491715550001<
  <h4>Wednesday, 2 January 2008<
  <li class="m u i"
  <p dir="auto">other<
  <h3 id="th4" dir="auto">+431715550001<
  <h4>Tuesday, 1 January 2008<
  <li class="m u i"
  <p dir="auto">one<
  <h3 id="th5" dir="auto">INFO<
  <h4>Monday, 1 January 2007<
  <li class="m u i"
  <p dir="auto">service<
  <h3 id="th6" dir="auto">Without a number<
  <h4>No date<
  <li class="m u o p"
  <p dir="auto">draft<

Entries that repeat are drawn on the days of May 2008 where they take place; that of December makes the year one that
is drawn, wherever the entry begins.

  $ may() {
  >   document calendar "{\"dtstart\": \"$1T10:00:00\", $2}" '{"dtstart": "2008-12-01T09:00:00"}' >in.json
  >   orvale convert --force in.json out.html
  >   sed 's/<section/\n&/g' out.html | grep 'id="y2008-5"' | grep -o '"d">[0-9]*</span><a' | tr -dc '0-9\n' | paste -sd ' '
  > }
  $ may 2008-05-07 '"recurtype": 0'
  7
  $ may 2008-04-29 '"recurtype": 1, "recurinterval": 3, "recurhasenddate": 1, "recurenddate": "2008-05-11T00:00:00"'
  2 5 8 11
  $ may 2008-05-07 '"recurtype": 1, "recurinterval": 1, "recurrepeat": 3'
  7 8 9
  $ may 2008-05-22 '"recurtype": 2, "recurweekmask": 62, "recurinterval": 0'
  22 23 26 27 28 29 30
  $ may 2008-05-05 '"recurtype": 2, "recurweekmask": 3, "recurinterval": 2'
  5 11 19 25
  $ may 2008-01-31 '"recurtype": 3, "recurday": 31, "recurinterval": 1'
  31
  $ may 2008-01-15 '"recurtype": 3, "recurinstance": 1, "recurweekmask": 4, "recurinterval": 1'
  20
  $ may 2008-01-15 '"recurtype": 3, "recurday": 15, "recurinterval": 3'
  
  $ may 1949-05-23 '"recurtype": 4, "recurday": 23, "recurmonth": 5, "recurinterval": 1'
  23
  $ may 1949-05-09 '"recurtype": 4, "recurmonth": 5, "recurinstance": 1, "recurweekmask": 2, "recurinterval": 1'
  12
  $ may 2008-05-07 '"recurtype": 5, "recurday": 7, "recurmonth": 5, "recurinstance": 1, "recurweekmask": 2'
  7
  $ grep 'Repetitions are drawn only so far' out.html
  [1]
