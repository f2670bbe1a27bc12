  $ . "$TESTDIR/setup.sh"
  $ document contacts "$(contact 5=Ann)" >ann.json
  $ document contacts "$(contact 5=Ann)" "$(contact 5=Bob)" >two.json
  $ same() { orvale show --json "$1" | cmp - "$2"; }

A rich contact of every type, four scripts, extras, and groups whose keys share a bucket or stand before others goes
through the native file unchanged.

  $ extras='{"type": -7, "extraNumber": 4294967295, "extraText": "x\ty", "groups": [{"id": 273, "name": "Friends"},
  > {"id": 3, "name": "Work"}, {"id": 1, "name": ""}, {"id": 17, "name": "Club"}, {"id": -5, "name": "Old"}]}'
  $ rich=$(contact $(printf '%d=Müller_Ελένη_Ирина_山田_😀 ' $types))
  $ document contacts "${rich%]*}, $extras]}" '{"storage": -2147483648, "fields": []}' >rich.json
  $ orvale convert --strict rich.json rich.qzs
  $ orvale convert --strict rich.qzs out.json
  $ orvale show --json rich.json >wanted.json
  $ cmp wanted.json out.json
  $ same rich.qzs wanted.json
  $ grep -c '"data": "Müller_Ελένη_Ирина_山田_😀"' out.json
  69
  $ sed -n '/"type": -7/,$p' out.json | tr -d ' \n'; echo
  "type":-7,"data":"","extraNumber":4294967295,"extraText":"x\ty","groups":[{"id":273,"name":"Friends"},{"id":3,"name":"Work"},{"id":1,"name":""},{"id":17,"name":"Club"},{"id":-5,"name":"Old"}]}]},{"storage":-2147483648,"fields":[]}]}

A contact comes back from a vCard as the format says.

  $ document contacts "$(contact 1=Ann 2=Lee 1002=a@b 4002=Sales '2001=1 Main St' '3002=a;b')" >in.json
  $ orvale convert in.json card.vcf
  orvale: card.vcf: lost: department: 1, first in contact 1
  orvale: card.vcf: changed: email 3 became email: 1, first in contact 1
  orvale: card.vcf: changed: work address became work street: 1, first in contact 1
  orvale: card.vcf: added: full name: 1, first in contact 1
  orvale: card.vcf: added: work address: 1, first in contact 1
  orvale: card.vcf: moved: order of the values: 1, first in contact 1
  $ sed 's/^REV:.*/REV:/' card.vcf
  BEGIN:VCARD\r (esc)
  VERSION:2.1\r (esc)
  N:Lee;Ann\r (esc)
  FN:Ann Lee\r (esc)
  EMAIL;PREF;INTERNET:a@b\r (esc)
  ADR;WORK:;;1 Main St\r (esc)
  NOTE;ENCODING=QUOTED-PRINTABLE:a=3Bb\r (esc)
  REV:
  END:VCARD\r (esc)
  \r (esc)
  $ orvale convert --strict card.vcf a.qzs
  $ orvale convert a.qzs again.vcf
  orvale: again.vcf: changed: work address: 1, first in contact 1
  orvale: again.vcf: changed: work street became work region: 1, first in contact 1
  orvale: again.vcf: added: work region 2: 1, first in contact 1
  $ grep ADR again.vcf
  ADR;WORK:;;;;1 Main St\r (esc)

What a vCard's reader can't make out is a loss; nothing of a card goes in silence.

  $ take() { orvale convert --force --from vcard in.vcf a.qzs; }
  $ { lines hello; card 2.1 FN:A X-FOO:bar 'TEL;X:1' 'NOTE:\xFF'; card 3.0 FN:B; card 2.1 FN:C; } >in.vcf && take
  orvale: a.qzs: lost: bytes that code page 65001 doesn't have: 1, first in in.vcf, line 7
  orvale: a.qzs: lost: lines outside of cards of version 2.1: 5, first in in.vcf, line 1
  orvale: a.qzs: lost: lines with an unknown key, which joined the value before them: 2, first in in.vcf, line 5
  $ orvale convert --strict --from vcard in.vcf b.qzs 2>/dev/null
  [3]
  $ ls b.qzs 2>/dev/null
  [2]
  $ card 2.1 FN:A 'NOTE;ENCODING=QUOTED-PRINTABLE:M=FCller' >in.vcf && take
  orvale: a.qzs: lost: bytes that code page 65001 doesn't have: 1, first in in.vcf, line 4
  $ card 2.1 FN:A 'TITLE:x\0yz' >in.vcf && take
  orvale: a.qzs: lost: ends of values behind a zero byte: 1, first in in.vcf, line 4
  $ card 2.1 FN:A 'ROLE:a=00b' >in.vcf && take
  orvale: a.qzs: lost: ends of values behind a zero byte: 1, first in in.vcf, line 4
  $ card 2.1 FN:A REV:2010 lost >in.vcf && take
  orvale: a.qzs: lost: lines that belong to no value, which were dropped: 1, first in in.vcf, line 5
  $ card 2.1 'TEL;CELL:' X-A:b NOTE:good ' fold' >in.vcf && take
  orvale: a.qzs: lost: lines that belong to no value, which were dropped: 1, first in in.vcf, line 4

A loss of several files is told once.

  $ card 3.0 FN:A X-A:b | tee 1.vcf >2.vcf
  $ orvale convert 1.vcf 2.vcf b.qzs
  orvale: b.qzs: lost: X-A: 2, first in 1.vcf, line 4

A value that ends its card is a loss.

  $ document contacts "$(contact 5=Ann '105=1\r\nEND:VCARD')" >in.json
  $ orvale convert --force in.json a.vcf
  orvale: a.vcf: lost: pieces of a value that ends its record: 1, first in record 2, byte 65
  orvale: a.vcf: changed: mobile phone 2: 1, first in contact 1
  orvale: a.vcf: added: given name: 1, first in contact 1

A native file may hold half a character, which no UTF-8 tells.

  $ half() { LC_ALL=C sed -i 's/\x2D\x4E/\x00\xD8/' "$@"; }
  $ document contacts "$(contact '5=Ann 中')" >in.json
  $ document email '{"subject": "Re 中"}' >mail.json
  $ orvale convert in.json half.qzs && orvale convert mail.json half.eml && half half.qzs half.eml
  $ orvale convert --force --strict half.qzs b.json
  orvale: b.json: lost: halves of characters that JSON can't tell: 1, first in b.json
  orvale: b.json: not written, for --strict takes no loss
  [3]
  $ orvale convert --force --strict half.qzs b.csv
  orvale: b.csv: changed: full name: 1, first in contact 1
  orvale: b.csv: not written, for --strict takes no loss
  [3]
  $ orvale convert --force --strict --to vcf half.qzs b.vcf
  orvale: b.vcf: lost: halves of characters that a vCard can't tell: 2, first in b.vcf
  orvale: b.vcf: not written, for --strict takes no loss
  [3]
  $ orvale convert --force --strict half.eml c.json
  orvale: c.json: lost: halves of characters that JSON can't tell: 1, first in c.json
  orvale: c.json: not written, for --strict takes no loss
  [3]

Of a damaged file comes what came whole; the place where the damage begins is told, and nothing is written unless it
was asked for.

  $ orvale show --json two.json | head -c -20 >cut.json
  $ orvale convert two.json two.qzs && head -c -1 two.qzs >cut.qzs
  $ { card 2.1 FN:Ann; lines '' BEGIN:VCARD VERSION:2.1 FN:Bob X:y; } >cut.vcf
  $ orvale show --json ann.json >wanted.json
  $ for file in cut.json cut.qzs cut.vcf; do
  >   orvale show $file || echo "[$?]"
  >   orvale info --json $file 2>/dev/null | grep -E 'records|truncated'
  >   orvale convert $file new.json || echo "[$?]"
  >   ls new.json 2>/dev/null
  >   orvale convert --partial --strict --force $file part.json
  >   cmp part.json wanted.json
  > done
  Ann
  
  1 contact
  orvale: cut.json: record 2, byte 233: damaged from here on
  [1]
    "records": 1,
    "truncated": true
  orvale: cut.json: record 2, byte 233: damaged from here on; --partial takes what came before
  [1]
  orvale: cut.json: record 2, byte 233: damaged from here on and left out
  Ann
  
  1 contact
  orvale: cut.qzs: record 2, byte 58: damaged from here on
  [1]
    "records": 1,
    "truncated": true
  orvale: cut.qzs: record 2, byte 58: damaged from here on; --partial takes what came before
  [1]
  orvale: cut.qzs: record 2, byte 58: damaged from here on and left out
  Ann
  
  1 contact
  orvale: cut.vcf: record 2, byte 45: damaged from here on
  [1]
    "records": 1,
    "truncated": true
  orvale: cut.vcf: record 2, byte 45: damaged from here on; --partial takes what came before
  [1]
  orvale: cut.vcf: record 2, byte 45: damaged from here on and left out

Inputs are joined in their order.

  $ card 2.1 FN:B >b.vcf
  $ orvale convert b.vcf ann.json all.qzs
  $ orvale show all.qzs
  B
  
  Ann
  
  2 contacts

What fails leaves the old file and nothing else. (Where coverage is counted, the counters of a run without room for its
file are cut off as well, and must not spoil those of others.)

  $ document contacts "$(contact 5=$(printf 'x%.0s' {1..1024}))" >long.json
  $ document contacts "$(contact 5=Ann)" '{"fields": [{"tpye": 1}]}' >bad.json
  $ document contacts "$(for i in {1..2000}; do contact 5=Ann; echo ,; done; contact 5=Ann)" >many.json
  $ mkdir counters; echo what was there >old.qzs; ls -A >before
  $ try() { orvale convert "$@" old.qzs || echo "[$?]"; cat old.qzs; ls -A | cmp - before; }
  $ noroom() { (trap '' XFSZ; ulimit -f 1; export GCOV_PREFIX=counters GCOV_ERROR_FILE=/dev/null; try "$@"); }
  $ try --force long.json
  orvale: old.qzs: record 1: was written and can't be read back; the format takes texts of at most 1023 units without a zero among them
  [1]
  what was there
  $ try --force bad.json
  orvale: bad.json: records[1].fields[0].tpye: unknown key
  [1]
  what was there
  $ noroom --force many.json
  orvale: old.qzs: record *: can't be written (glob)
  [1]
  what was there
  $ noroom --force --to json many.json
  orvale: old.qzs: record *: can't be written (glob)
  [1]
  what was there
  $ try ann.json
  orvale: old.qzs: exists already; --force replaces it
  [1]
  what was there
  $ orvale convert --no-verify --force long.json old.qzs

A link and the permissions of what is replaced stay; a device is replaced by nothing.

  $ echo old >real.qzs; chmod 600 real.qzs; ln -s real.qzs link.qzs
  $ orvale convert --force ann.json link.qzs
  $ stat -c '%F %a' link.qzs real.qzs
  symbolic link 777
  regular file 600
  $ orvale show real.qzs
  Ann
  
  1 contact
  $ orvale convert --force --to json ann.json /dev/null
  orvale: /dev/null: is no regular file
  [1]
  $ stat -c %F /dev/null
  character special file

A file that another program holds is told; a pipe is no file of a format.

  $ orvale convert ann.json held.qzs
  $ flock held.qzs orvale show held.qzs
  orvale: held.qzs: another program holds the file
  [1]
  $ flock held.qzs orvale convert --force ann.json held.qzs
  orvale: held.qzs: another program holds the file
  [1]
  $ mkfifo pipe.qzs
  $ orvale show --format qzs pipe.qzs
  orvale: pipe.qzs: is no regular file
  [1]
  $ orvale show --format json pipe.qzs
  orvale: pipe.qzs: is no regular file
  [1]

A wrong flag is read only where the format is named.

  $ cp held.qzs wrong.qzs
  $ printf X | dd of=wrong.qzs bs=1 seek=4 conv=notrunc status=none
  $ orvale show wrong.qzs
  orvale: wrong.qzs: no whole file of the format qzs (VERIFY_WRONG_FLAG)
  [1]
  $ orvale show --format qzs wrong.qzs
  orvale: wrong.qzs: no whole file of the format qzs (VERIFY_WRONG_FLAG)
  Ann
  
  1 contact
  $ orvale convert --from qzs wrong.qzs named.json
  orvale: wrong.qzs: no whole file of the format qzs (VERIFY_WRONG_FLAG)
  $ orvale info wrong.qzs >/dev/null
  [1]

Text is converted by the code page that is named.

  $ card 2.1 'FN:M\xFCller' >in.vcf
  $ orvale convert --codepage 1252 in.vcf codepage.qzs
  $ orvale show codepage.qzs | head -n 1
  M\xc3\xbcller (esc)
  $ document contacts "$(contact 5=山)" >in.json
  $ orvale convert --codepage 1252 in.json codepage.vcf
  orvale: codepage.vcf: changed: full name: 1, first in contact 1
  orvale: codepage.vcf: added: given name: 1, first in contact 1
