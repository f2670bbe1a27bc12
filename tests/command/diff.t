  $ . "$TESTDIR/setup.sh"
  $ ann=$(contact 5=Ann 104=1) moved=$(contact 5=Ann 104=2) bob=$(contact 5=Bob) cat=$(contact 5=Cat)
  $ noted=$(contact 5=Bob '4000=x\u001b')
  $ between() { document "$1" "$2" >a.json; document "$1" "$3" >b.json; orvale diff a.json b.json; }

Contacts, record by record.

  $ between contacts "$ann,$bob" "$ann,$bob"
  contacts: 2 the same
  $ between contacts '' ''
  contacts: 0 the same
  $ between contacts "$ann,$ann" "$ann"
  contact 2 Ann, only in a.json
  contacts: 1 the same, 1 only in a.json
  [1]
  $ between contacts "$bob,$ann" "$ann"
  contact 1 Bob, only in a.json
  contacts: 1 the same, 1 only in a.json
  [1]
  $ between contacts "$ann" "$ann,$bob"
  contact 2 Bob, only in b.json
  contacts: 1 the same, 1 only in b.json
  [1]
  $ between contacts "$ann,$bob,$cat" "$cat,$ann,$bob"
  contacts: 3 the same; 1 of the same in another order
  [1]
  $ between contacts "$bob,$ann" "$moved,$bob"
  contact 2 Ann, in b.json 1
    mobile phone            "1" in a.json, "2" in b.json
  contacts: 1 the same, 1 different
  [1]
  $ between contacts "$(contact '3002=x\r\ny')" "$(contact '3002=x\ny')"
  contact 1 x^M^Jy
    note                    "x^M^Jy" in a.json, "x^Jy" in b.json
  contacts: 0 the same, 1 different
  [1]
  $ between contacts "$bob" "$noted"
  contact 1 Bob
    general address         "x^[" only in b.json
  contacts: 0 the same, 1 different
  [1]
  $ between contacts "$bob,$cat" "$bob,$(contact 5=Kat)"
  contact 2 Cat
    full name               "Cat" in a.json, "Kat" in b.json
  contacts: 1 the same, 1 different
  [1]

A record is named by what a person knows it by.

  $ between sms '{"name": "Ann", "phonenumber": "1", "time": "t", "content": "x"}' \
  >   '{"name": "Ann", "phonenumber": "1", "time": "t", "content": "y"}'
  message 1 Ann <1>, t
    text                    "x" in a.json, "y" in b.json
  messages: 0 the same, 1 different
  [1]
  $ between sms '{"phonenumber": "1", "time": "", "content": "x"}' '{"phonenumber": "1", "time": "", "content": "y"}' | head -n 1
  message 1 1
  $ between sms '{"name": "Ann", "time": "", "content": "x"}' '{"name": "Ann", "time": "", "content": "y"}' | head -n 1
  message 1 Ann
  $ between sms '{"time": "", "content": "x"}' '{"time": "", "content": "y"}' | head -n 1
  message 1 (nobody)
  $ between email '{"subject": "s", "body": "x"}' '{"subject": "s", "body": "y"}' | head -n 1
  email 1 s
  $ between email '{"body": "x"}' '{"body": "y"}' | head -n 1
  email 1 (no subject)
  $ between calendar '{"fields": [{"type": 3000, "data": "s"}], "ring": "x"}' \
  >   '{"fields": [{"type": 3000, "data": "s"}], "ring": "y"}' | head -n 1
  calendar entry 1 s

Dates and numbers with names are told as a person reads them, and profiles without their passwords.

  $ between calendar '{"dtstart": "2010-07-26T06:00:15", "category": 1}' \
  >   '{"dtstart": "2010-07-27T06:00:00", "category": 2}'
  calendar entry 1 (no description)
    start                   "2010-07-26 06:00:15" in a.json, "2010-07-27 06:00" in b.json
    category                "1 (CATE_APPOINTMENT)" in a.json, "2 (CATE_BUSINESS)" in b.json
  calendar entries: 0 the same, 1 different
  [1]
  $ echo '{"orvale": 1, "kind": "email", "profile": {"dllname": "one"}, "records": []}' >a.json
  $ sed s/one/two/ a.json >b.json
  $ orvale diff a.json b.json
  the profile
    dllname                 "one" in a.json, "two" in b.json
  emails: 0 the same
  [1]

As JSON, for scripts.

  $ between contacts "$bob" "$noted,$cat" >/dev/null
  [1]
  $ orvale diff --json a.json b.json
  {
    "kind": "contacts",
    "files": [
      "a.json",
      "b.json"
    ],
    "same": 0,
    "moved": 0,
    "profile": [],
    "records": [
      {
        "numbers": [
          1,
          1
        ],
        "title": "Bob",
        "changes": [
          {
            "what": "general address",
            "before": null,
            "after": "x\u001b"
          }
        ]
      },
      {
        "numbers": [
          null,
          2
        ],
        "title": "Cat",
        "changes": []
      }
    ]
  }
  [1]

Files of different formats.

  $ document contacts "$ann" "$noted" >a.json
  $ orvale convert a.json a.qzs
  $ orvale diff a.json a.qzs
  contacts: 2 the same
  $ orvale diff --format json a.json - <a.json
  contacts: 2 the same
  $ document sms >sms.json
  $ orvale diff a.qzs sms.json
  orvale: sms.json: holds messages, not contacts
  [1]

What a reader lost or passed over isn't compared, and that is told; so is the end of a damaged file of each kind.

  $ lines BEGIN:VCARD VERSION:3.0 FN:A PHOTO:x END:VCARD >a.vcf
  $ cat >b.xml <<'END'
  > <phonebook version='100' id='suite-phonebook'><profile><device><id>1</id><typeset><C00><id>5</id></C00></typeset>
  > </device></profile><contactentries><contact><C00>broken</C00></contact><contact><device>1</device><C00>A</C00>
  > </contact></contactentries></phonebook>
  > END
  $ orvale diff a.vcf b.xml
  orvale: not compared: PHOTO: 1, first in a.vcf, line 4
  orvale: b.xml: 1 record could not be read and was passed over
  the profile
    config                  "0" only in b.xml
    speeddial.label         "" only in b.xml
    speeddial.flag          "0" only in b.xml
    speeddial.min           "0" only in b.xml
    speeddial.max           "0" only in b.xml
    speeddial.assignablephonetypes "" only in b.xml
    speeddial.unassignableid "" only in b.xml
    devices[0].id           "1" only in b.xml
    devices[0].name         "" only in b.xml
    devices[0].config       "0" only in b.xml
    devices[0].typespercontact "0" only in b.xml
    devices[0].typecount    "0" only in b.xml
    devices[0].namecount    "0" only in b.xml
    devices[0].typeset[0].id "5" only in b.xml
    devices[0].typeset[0].label "" only in b.xml
    devices[0].typeset[0].icon "" only in b.xml
    devices[0].typeset[0].length "0" only in b.xml
    devices[0].memorylocation.label "" only in b.xml
    devices[0].memorylocation.flag "0" only in b.xml
    devices[0].memorylocation.min "0" only in b.xml
    devices[0].memorylocation.max "0" only in b.xml
    devices[0].memorylocation.unassignable "" only in b.xml
    devices[0].groupset.name "" only in b.xml
    devices[0].groupset.flag "0" only in b.xml
    handset                 "" only in b.xml
    dllname                 "" only in b.xml
  contact 1 A
    storage                 "1" only in b.xml
  contacts: 0 the same, 1 different
  [1]
  $ lines 'full name,customer no' Ann,7 >a.csv
  $ lines 'full name,customer no' Ann,8 >b.csv
  $ orvale diff a.csv b.csv
  orvale: not compared: values of column 'customer no', which nobody knows; --profile can tell its type, see orvale help show: 1, first in a.csv, line 2
  orvale: not compared: values of column 'customer no', which nobody knows; --profile can tell its type, see orvale help show: 1, first in b.csv, line 2
  contacts: 1 the same
  $ for file in contacts.qzs calendar.cal messages.sms mails.eml; do
  >   cp "$samples/$file" .
  >   head -c -1 $file >cut
  >   orvale diff $file cut >/dev/null
  >   orvale convert --force $file cut new.json
  >   orvale convert --force --partial $file cut new.json
  >   orvale convert --force --unique $file $file new.json
  > done
  orvale: cut: record 4, byte 660: damaged from here on, which is not compared
  orvale: cut: record 4, byte 660: damaged from here on; --partial takes what came before
  orvale: cut: record 4, byte 660: damaged from here on and left out
  orvale: new.json: left out: 4 contacts equal to an earlier one
  orvale: cut: record 6, byte 982: damaged from here on, which is not compared
  orvale: cut: record 6, byte 982: damaged from here on; --partial takes what came before
  orvale: cut: record 6, byte 982: damaged from here on and left out
  orvale: new.json: left out: 6 calendar entries equal to an earlier one
  orvale: cut: record 5, byte 614: damaged from here on, which is not compared
  orvale: cut: record 5, byte 614: damaged from here on; --partial takes what came before
  orvale: cut: record 5, byte 614: damaged from here on and left out
  orvale: new.json: left out: 5 messages equal to an earlier one
  orvale: cut: record 3, byte 802: damaged from here on, which is not compared
  orvale: cut: record 3, byte 802: damaged from here on; --partial takes what came before
  orvale: cut: record 3, byte 802: damaged from here on and left out
  orvale: new.json: left out: 3 emails equal to an earlier one

Equal records are written once.

  $ document contacts "$ann" "$bob" "$ann" >a.json
  $ document contacts "$bob" "$moved" >b.json
  $ orvale convert --unique --strict a.json b.json all.qzs
  orvale: all.qzs: left out: 2 contacts equal to an earlier one
  $ document contacts "$ann" "$bob" "$moved" >wanted.json
  $ orvale diff wanted.json all.qzs
  contacts: 3 the same
