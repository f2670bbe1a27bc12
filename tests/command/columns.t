  $ . "$TESTDIR/setup.sh"
  $ take() { orvale convert --strict --force in.csv out.json; }

What of a CSV file reaches no contact is a loss, told once by all that read one; --strict takes none of it.

  $ lines 'Given Name , note' 'Ann,"a, ""b"""' '' >in.csv && take
  $ lines 'given name,note, ' 'Ann,x, ' >in.csv && take
  $ lines 'note,customer no,' 'a,,' 'b,"",' 'c," "' >in.csv && take
  $ lines 'note,,given name' 'a,,Ann' >in.csv && take
  $ lines 'given name,note' 'Ann,a\nb' >in.csv && take
  $ lines 'given name,note,' 'Ann,1,' 'Bob,2,3,4, ,"","5"' >in.csv && take
  orvale: out.json: lost: values behind the last column: 3, first in in.csv, line 3
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ orvale show in.csv >/dev/null
  orvale: in.csv: lost: values behind the last column: 3, first in line 3
  $ orvale info --json in.csv >/dev/null
  orvale: in.csv: lost: values behind the last column: 3, first in line 3
  $ lines 'given name,note,' '"Ann","first' 'second",' '"Bob,b' >in.csv && take
  orvale: out.json: lost: values whose quotes don't close on their line, where they were cut off: 2, first in in.csv, line 2
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ lines 'note,customer no' 'a,' 'b,7' 'c,8' >in.csv && take
  orvale: out.json: lost: values of column 'customer no', which nobody knows; --profile can tell its type, see orvale help show: 2, first in in.csv, line 3
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ lines 'note,,given name' 'a,x,Ann' 'b,,' >in.csv && take
  orvale: out.json: lost: values of a column without a caption: 1, first in in.csv, line 2
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ lines '\xEF\xBB\xBFgiven name,note' 'Ann,x' >in.csv && take
  orvale: out.json: lost: values of column '<U+FEFF>given name', which a byte order mark before its caption hides; take it out: 1, first in in.csv, line 2
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ orvale show --codepage 1252 in.csv 2>&1 >/dev/null | head -n 1
  orvale: in.csv: lost: values of column '\xc3\xaf\xc2\xbb\xc2\xbfgiven name', which a byte order mark before its caption hides; take it out: 1, first in line 2 (esc)
  $ printf 'given name,note\nAnn,1\nBob,2\n' >in.csv && take
  orvale: out.json: lost: lines behind the captions that end in LF alone and not in CR LF: 2, first in in.csv, line 2
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ printf 'given name,note,\rAnn,1,\r' >in.csv && take
  orvale: out.json: lost: lines behind the captions that end in CR alone and not in CR LF: 1, first in in.csv, line 2
  orvale: out.json: not written, for --strict takes no loss
  [3]

Many unknown columns are few lines.

  $ lines "$(printf 'c%d,' {0..299})" "$(printf 'v,%.0s' {0..299})" >in.csv
  $ orvale show in.csv 2>&1 >/dev/null | wc -l
  41
  $ orvale show in.csv 2>&1 >/dev/null | tail -n 1
  orvale: in.csv: lost: 260 more kinds of values

What the reader of SSY leaves out is a loss; each record ends in a zero.

  $ ssy() {
  >   printf %b "$1" >records
  >   { head -c 50 /dev/zero; printf "\\x$(printf %x $(wc -c <records))\\0\\0\\0"; cat records; } >in.ssy
  >   orvale convert --strict --force in.ssy out.json
  > }
  $ ssy 'A&44B,Lee,,,,3,5&445,2,66,9,:e,u\0'
  $ ssy 'Ann,,,,,9,1,9,1,20,Ann:\0'
  $ ssy 'Ann,,,,,:\0A&44B&45,Lee,drop1,drop2,,3,5&445,3,66,...:e&44m,u&45rl,more,items\0'
  orvale: out.json: lost: items that no field takes: 4, first in in.ssy, record 2
  orvale: out.json: lost: values replaced by a later one of their type: 1, first in in.ssy, record 2
  orvale: out.json: not written, for --strict takes no loss
  [3]
  $ ssy 'Ann,,,,,17,1,18,2:\0'
  orvale: out.json: lost: values replaced by a later one of their type: 1, first in in.ssy, record 1
  orvale: out.json: not written, for --strict takes no loss
  [3]

Failures tell their reason.

  $ long=$(printf 'c%.0s' {1..1025})
  $ lines "note,$long" | orvale show --format csv -
  orvale: standard input: its header can't be read: caption 2 is longer than 1024 characters
  [1]
  $ lines "$long,$long" | orvale show --format csv -
  orvale: standard input: its header can't be read (VERIFY_NOT_READ_HEADER): the line of captions is longer than 2047 bytes
  [1]
  $ printf 'note\n%s%s\n' $long $long | orvale info --format csv -
  orvale: standard input: its header can't be read (VERIFY_NOT_READ_HEADER): the line of captions is longer than 2047 bytes; its lines end in LF alone and not in CR LF
  standard input: csv (contacts), version 210, header unreadable, VERIFY_NOT_READ_HEADER (8195), 0 records
  [1]
  $ lines '' x >blank.csv
  $ orvale convert blank.csv a.qzs
  orvale: blank.csv: its header can't be read (VERIFY_NOT_READ_HEADER): its first line holds no captions
  [1]
  $ >none.csv
  $ orvale show none.csv
  orvale: none.csv: its header can't be read (VERIFY_NOT_READ_HEADER): the file is empty
  [1]
  $ document contacts "$(contact 5=Ann)" >ann.json
  $ echo '{"columns": []}' >none.json
  $ orvale convert --profile none.json ann.json a.csv
  orvale: none.json: columns: a file of columns has at least one
  [1]
  $ echo '{"columns": [{"caption": "'$long'", "type": 5}, {"caption": "'$long'", "type": 104}]}' >wide.json
  $ orvale convert --profile wide.json ann.json a.csv
  orvale: a.csv: its header can't be read (VERIFY_NOT_READ_HEADER): the line of captions is longer than 2047 bytes
  [1]
  $ document contacts "$(contact "5=$long$long")" >long.json
  $ orvale convert long.json a.csv
  orvale: a.csv: record 1: was written and can't be read back; the format takes lines of at most 2047 bytes
  [1]
  $ orvale convert long.json a.qzs
  orvale: a.qzs: record 1: was written and can't be read back; the format takes texts of at most 1023 units without a zero among them
  [1]

The page of CSV lists the caption of every type.

  $ document contacts "$(contact $(printf '%d=x ' $types))" >all.json
  $ orvale convert --strict all.json all.csv
  $ head -n 1 all.csv | grep -o '[^,]*,' | paste -d '|' - <(echo "$types") | tr -d , | sort >known
  $ sed -n '/^| Caption/,/^$/p' "$TESTDIR/../../docs/formats/csv.md" | grep -oE '[^|]+\| [0-9]+ ' |
  >   sed -E 's/^ | $//g; s/ \| /|/' | sort | diff known -
  $ wc -l <known
  69
