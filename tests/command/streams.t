  $ . "$TESTDIR/setup.sh"
  $ mkdir spool
  $ export TMPDIR=$PWD/spool
  $ document contacts '{"fields": [{"type": 5, "data": "Ann", "groups": [{"id": 1, "name": "Friends"}]}]}' >ann.json

Anything is read from standard input and written to standard output, between files in its place.

  $ orvale convert --from json --to qzs - - <ann.json >ann.qzs
  $ orvale info --format qzs - <ann.qzs
  standard input: qzs (contacts), version 100, VERIFY_OK (0), 1 record
  $ orvale show --format qzs - <ann.qzs
  Ann  [Friends]
  
  1 contact
  $ orvale show --json ann.qzs >shown
  $ orvale convert --to json ann.qzs - | cmp - shown
  $ orvale convert ann.qzs - ann.json two.csv --from json <ann.json
  orvale: ann.qzs: line 1: expected '{'
  [1]
  $ orvale convert ann.json - three.qzs --from json <ann.json
  $ orvale info three.qzs
  three.qzs: qzs (contacts), version 100, VERIFY_OK (0), 2 records

What goes wrong with a stream is told as of a file, and nothing is written.

  $ card 2.1 N:A >cut.vcf
  $ card 2.1 N:B | head -n -1 >>cut.vcf
  $ orvale show - <ann.json
  orvale: nothing tells the format of standard input; --format, or --from, names it
  [2]
  $ orvale convert - - new.qzs --from json <ann.json
  orvale: standard input can be read only once
  [2]
  $ orvale diff --format json - - <ann.json
  orvale: standard input can be read only once
  [2]
  $ orvale convert ann.json -
  orvale: -: nothing tells its format; --to names one
  [2]
  $ orvale convert --from qzs - new.vcf <ann.json
  orvale: standard input: no whole file of the format qzs (VERIFY_WRONG_FLAG)
  orvale: standard input: record 1, byte 24: damaged from here on; --partial takes what came before
  [1]
  $ orvale show --format qzs - <&-
  orvale: standard input: temporary file: Bad file descriptor
  [1]
  $ orvale convert --from vcard - new.qzs <cut.vcf
  orvale: standard input: record 2, byte 42: damaged from here on; --partial takes what came before
  [1]
  $ orvale convert --to vcard ann.json - >/dev/null
  orvale: standard output: lost: groups: 1, first in contact 1
  orvale: standard output: added: given name: 1, first in contact 1
  $ orvale convert --strict --to vcard ann.json -
  orvale: standard output: lost: groups: 1, first in contact 1
  orvale: standard output: added: given name: 1, first in contact 1
  orvale: standard output: not written, for --strict takes no loss
  [3]
  $ TMPDIR=missing orvale convert --to json ann.json -
  orvale: standard output: temporary file: No such file or directory
  [1]
  $ ls new.*
  ls: cannot access 'new.*': No such file or directory
  [2]

Who reads the output may go away at any moment; then the command ends as every program does by that signal.

  $ document contacts $(yes '{"fields":[{"type":5,"data":"A-contact-with-a-name-of-some-length"}]}' | head -n 5000) >many.json
  $ gone() { orvale "$@" <many.json | head -c 1 >/dev/null; echo ${PIPESTATUS[0]}; }
  $ gone show many.json
  141
  $ gone show --json --format json -
  141
  $ gone convert --to csv many.json -
  141
  $ gone convert --from json --to json - -
  141

Who is told of losses may go away too; the work is done all the same.

  $ { sleep 0.3; orvale convert ann.json a.vcf; echo $? >code; } 2>&1 | true
  $ cat code
  0
  $ orvale convert ann.json b.vcf 2>&-
  $ orvale info a.vcf b.vcf
  a.vcf: vcard (contacts), version 210, VERIFY_OK (0), 1 record
  b.vcf: vcard (contacts), version 210, VERIFY_OK (0), 1 record

No temporary file is left of all that.

  $ ls spool
