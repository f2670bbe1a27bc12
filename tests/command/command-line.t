  $ . "$TESTDIR/setup.sh"
  $ document contacts "$(contact 5=Ann)" | tee ann.json '[odd] name.json' ./-dash.json >/dev/null
  $ document sms >sms.json
  $ echo 'nothing of ours' >note.txt
  $ orvale convert ann.json ann.qzs

What can't be understood ends with 2, and one line on standard error says why.

  $ orvale
  orvale: a verb is missing; the verbs are formats, info, show, view, diff, convert, log, help ('orvale help' tells what they do)
  [2]
  $ orvale 2>/dev/null
  [2]
  $ orvale shwo ann.qzs
  orvale: unknown verb 'shwo'; is 'show' meant? (the verbs are formats, info, show, view, diff, convert, log, help)
  [2]
  $ orvale verschieben ann.qzs
  orvale: unknown verb 'verschieben'; the verbs are formats, info, show, view, diff, convert, log, help
  [2]
  $ orvale --json info ann.qzs
  orvale: unknown verb '--json'; options come behind the verb; the verbs are formats, info, show, view, diff, convert, log, help
  [2]
  $ orvale help shwo
  orvale: unknown verb 'shwo'; is 'show' meant? (the verbs are formats, info, show, view, diff, convert, log, help)
  [2]
  $ orvale help show info
  orvale: too many arguments; help takes [VERB]
  [2]
  $ orvale show
  orvale: show takes FILE
  [2]
  $ orvale show ann.qzs ann.json
  orvale: too many arguments; show takes FILE
  [2]
  $ orvale show --colour ann.qzs
  orvale: unknown option '--colour'; is '--color' meant?
  [2]
  $ orvale show --jsn=1 ann.qzs
  orvale: unknown option '--jsn=1'; is '--json' meant?
  [2]
  $ orvale show -j ann.qzs
  orvale: unknown option '-j'
  [2]
  $ orvale show --color=blue ann.qzs
  orvale: --color takes auto, always or never, not 'blue'
  [2]
  $ orvale show --csv --json ann.json
  orvale: --csv and --json can't stand together
  [2]
  $ orvale show --format vcrd ann.qzs
  orvale: unknown format 'vcrd'; is 'vcard' meant? ('orvale formats' lists them)
  [2]
  $ orvale show --format XML ann.qzs
  orvale: unknown format 'XML'; .xml files are of phonebook-xml, calendar-xml, sms-xml, email-xml ('orvale formats' lists them)
  [2]
  $ orvale show --format bogus missing.qzs
  orvale: unknown format 'bogus' ('orvale formats' lists them)
  [2]
  $ orvale show --format '' ann.qzs
  orvale: --format is empty
  [2]
  $ orvale show --format
  orvale: --format: 1 required NAME missing
  [2]
  $ orvale show --codepage 7 ann.qzs
  orvale: unknown code page 7
  [2]
  $ orvale show --codepage 1252x ann.qzs
  orvale: unknown code page 1252x
  [2]
  $ orvale info --format qzs - -
  orvale: standard input can be read only once
  [2]
  $ orvale convert ann.qzs
  orvale: convert takes INPUT... OUTPUT
  [2]
  $ orvale convert ann.qzs new.doc
  orvale: new.doc: nothing tells its format; --to names one
  [2]
  $ orvale convert --strict --no-verify ann.qzs new.vcf
  orvale: --strict needs the reading back that --no-verify leaves out
  [2]
  $ orvale convert --from sms ann.qzs new.qzs
  orvale: --from and the output's format are of two kinds
  [2]
  $ orvale log nonsense
  orvale: the log is off, file, debug or both, not 'nonsense'
  [2]
  $ orvale log nonsense --module missing.so
  orvale: the log is off, file, debug or both, not 'nonsense'
  [2]

What can't be done ends with 1.

  $ orvale show missing.qzs
  orvale: missing.qzs: No such file or directory
  [1]
  $ orvale show .
  orvale: .: is a folder without a file of the format vcalendar
  [1]
  $ orvale show /dev/zero
  orvale: /dev/zero: is no regular file
  [1]
  $ orvale show $'\e[31mno\nsuch'
  orvale: ^[[31mno^Jsuch: No such file or directory
  [1]
  $ orvale show note.txt
  orvale: note.txt: not recognised as any format
  [1]
  $ orvale show --format qzs note.txt
  orvale: note.txt: its header can't be read (VERIFY_WRONG_FLAG)
  [1]
  $ orvale convert ann.qzs ann.json
  orvale: ann.json: exists already; --force replaces it
  [1]
  $ orvale convert --force ann.qzs ann.qzs
  orvale: ann.qzs: is an input too
  [1]
  $ orvale convert --to json ann.qzs .
  orvale: .: is a folder
  [1]
  $ orvale convert ann.qzs missing/new.vcf
  orvale: missing/new.vcf: No such file or directory
  [1]
  $ orvale convert sms.json new.qzs
  orvale: sms.json: holds messages, not contacts
  [1]
  $ orvale convert ann.json sms.json new.json
  orvale: sms.json: holds messages, not contacts
  [1]
  $ for date in '"2010-13-26T06:00:15"' '"2010-07-26"' true; do
  >   document calendar "{\"dtstart\": $date}" >date.json
  >   orvale show date.json || echo $?
  > done
  orvale: date.json: records[0].dtstart: no date; it reads like 2010-07-26T06:00:15
  1
  orvale: date.json: records[0].dtstart: no date; it reads like 2010-07-26T06:00:15
  1
  orvale: date.json: records[0].dtstart: expected a date
  1
  $ orvale show --module missing.so ann.qzs
  orvale: missing.so: cannot open shared object file: No such file or directory
  [1]
  $ orvale log file --module . >out 2>&1 || echo $?
  1
  $ sed s,/.*/,, out
  orvale: command-line.t: is no file
  $ orvale show ann.qzs >/dev/full
  orvale: standard output: can't be written
  [1]

Names with brackets and dashes are names.

  $ orvale show '[odd] name.json' | head -n 1
  Ann
  $ orvale show -- -dash.json | head -n 1
  Ann

The formats as a list and as JSON.

  $ orvale formats | grep -e '^vcard ' -e '^json '
  vcard           contacts    .vcf    reads, writes
  json            all kinds   .json   reads, writes
  $ orvale formats --json | grep -A 5 -e '"vcard"' -e '"json"'
      "name": "vcard",
      "kind": "contacts",
      "extension": ".vcf",
      "type": 3,
      "reads": true,
      "writes": true
  --
      "name": "json",
      "kind": null,
      "extension": ".json",
      "type": null,
      "reads": true,
      "writes": true

What files are. A file that fails keeps none of the others back.

  $ orvale info ann.qzs missing ann.json
  ann.qzs: qzs (contacts), version 100, VERIFY_OK (0), 1 record
  orvale: missing: No such file or directory
  ann.json: json (contacts), version 1, VERIFY_OK (0), 1 record
  [1]
  $ orvale info --json ann.qzs
  {
    "file": "ann.qzs",
    "format": "qzs",
    "kind": "contacts",
    "fileVersion": 100,
    "verify": {
      "code": 0,
      "name": "VERIFY_OK"
    },
    "header": 1,
    "records": 1,
    "truncated": false
  }
  $ orvale info --json ann.qzs missing ann.json | grep file
  orvale: missing: No such file or directory
      "file": "ann.qzs",
      "fileVersion": 100,
      "file": "ann.json",
      "fileVersion": 1,

The content tells the format before the extension does.

  $ card 2.1 FN:A | sed '1s/.*/\r\n begin:vcard\r/' >card.qzs
  $ >empty.vcf
  $ printf '\xEF\xBB\xBF%s\n' "<SMS id='suite-SMS'><profile/><smsentries><sms><content>" BEGIN:VCARD \
  >   '</content></sms></smsentries></SMS>' >marked.xml
  $ { printf '\xFF\xFE'; printf %s "<SMS id='suite-SMS'>" | iconv -t UTF-16LE; lines '' BEGIN:VCALENDAR; } >wide.xml
  $ orvale info card.qzs empty.vcf marked.xml wide.xml
  card.qzs: vcard (contacts), version 210, VERIFY_OK (0), 1 record
  empty.vcf: vcard (contacts), version 210, VERIFY_OK (0), 0 records
  marked.xml: sms-xml (sms), version 100, VERIFY_OK (0), 1 record
  orvale: wide.xml: no well-formed XML document, or one beyond the limits
  [1]

The log is that of the module in use; the registry's other values stay.

  $ lines '[HKEY_CURRENT_USER\\Other]' '"x"="y"' >registry
  $ orvale log | sed s,/.*/,,
  log: off
  module: Orvale.so
  log file: Orvale.log
  registry: registry
  $ for word in file debug both off debug; do
  >   orvale log $word >/dev/null
  >   orvale log | head -n 1
  > done
  log: file
  log: debug
  log: both
  log: off
  log: debug
  $ grep x registry
  "x"="y"\r (esc)
  $ orvale info ann.qzs 2>&1 >/dev/null | grep -o 'ORVALE - CQZSFile::Read : Succeeded'
  ORVALE - CQZSFile::Read : Succeeded
  $ orvale log --module note.txt 2>&1 | sed s,/.*/,,
  orvale: note.txt: only a module of the name Orvale.so keeps a log
  log: off
  module: note.txt
  log file: note.log
  registry: registry
  $ ORVALE_REGISTRY=registry/none orvale log file
  orvale: registry/none: Not a directory
  [1]
  $ (unset HOME XDG_CONFIG_HOME; ORVALE_REGISTRY= orvale log)
  orvale: registry: neither ORVALE_REGISTRY nor a home folder tells its place
  [1]
