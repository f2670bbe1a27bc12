  $ . "$TESTDIR/setup.sh"

Phones with keys, and their quoted-printable.

  $ card 2.1 'N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:M=C3=' '=BCller;J=C3=BCr=' 'gen=3B;;;' 'TEL;CELL;PREF:+49170' \
  >   'TEL;WORK:1' 'TEL;VOICE;WORK:2' 'TEL;WORK;VOICE:3' 'NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=3D=' '' \
  >   REV:20040101T000000Z | told
  2 "M\xc3\xbcller" (esc)
  1 "J\xc3\xbcrgen;" (esc)
  104 "+49170"
  100 "1"
  101 "2"
  101 "3"
  3002 "a\r\nb="

Parameters in another order.

  $ card 2.1 FN:Ann 'TEL;PREF;VOICE;CELL:1' 'TEL;VOICE;CELL;HOME:2' 'TEL;CELL:3' 'TEL;FAX;WORK:4' 'TEL;FAX:5' \
  >   'TEL;PAGER:6' 'TEL;CAR;VOICE:7' 'TEL;PREF:8' TEL:9 'TEL;MSG:10' 'EMAIL;PREF;INTERNET:a@b' \
  >   'EMAIL;INTERNET;HOME:c@d' 'EMAIL;TLX:11' X-WAB-GENDER:2 | told
  5 "Ann"
  104 "1"
  105 "2"
  105 "3"
  112 "4"
  110 "5"
  106 "6"
  114 "7"
  118 "8"
  108 "9"
  107 "10"
  1000 "a@b"
  1001 "c@d"
  120 "11"
  4008 "2"

Phones of the Far East: values in charsets of two bytes, and a quoted-printable broken between the two.

  $ card 2.1 'N;CHARSET=SHIFT_JIS:\x8E\x52\x93\x63;\x91\xBE\x98\x59' \
  >   'SOUND;X-READING;CHARSET=SHIFT_JIS:\xD4\xCF\xC0' \
  >   'ADR;HOME;CHARSET=SHIFT_JIS:;;\x95\x5C;\x93\x8C\x8B\x9E;;100-0001' 'NOTE;CHARSET=X-NOBODY:a' | told
  2 "\xe5\xb1\xb1\xe7\x94\xb0" (esc)
  1 "\xe5\xa4\xaa\xe9\x83\x8e" (esc)
  2002 "\xe8\xa1\xa8" (esc)
  2004 "\xe6\x9d\xb1\xe4\xba\xac" (esc)
  2006 "100-0001"
  3002 "a"
  lost: SOUND: 1, line 4
  lost: values in a charset that isn't known: 1, line 6
  $ card 2.1 'N;CHARSET=GB2312;ENCODING=QUOTED-PRINTABLE:=CD=F5;=D0=A1=' '=C3=' '=F7' 'TEL;HOME;VOICE:1' | told
  2 "\xe7\x8e\x8b" (esc)
  1 "\xe5\xb0\x8f\xe6\x98\x8e" (esc)
  102 "1"

An office program of the desktop.

  $ card 2.1 'N;LANGUAGE=de:O\\;Neil;J\xF6rg;;Dr.' 'FN;CHARSET=Windows-1252:J\xF6rg O;Neil' 'ORG:Acme;Sales;East' \
  >   TITLE:Head 'ADR;WORK;ENCODING=QUOTED-PRINTABLE:PO 1;Floor 3;Main=0D=0A=' 'Street 5;Town;BE;1;Land' \
  >   'LABEL;WORK;ENCODING=QUOTED-PRINTABLE:Main 5=0D=0A=' Town 'URL;WORK:http://a.example/?b=41;c' BDAY:19650314 \
  >   'NOTE:C:\\new\\;x' 'KEY;X509;ENCODING=BASE64:' '    MIIB' '    AAA=' '' 'EMAIL;PREF;INTERNET:a@b' | told
  2 "O;Neil"
  1 "J\xef\xbf\xbdrg" (esc)
  4010 "Dr."
  5 "J\xc3\xb6rg O;Neil" (esc)
  4032 "Acme"
  4002 "Sales, East"
  4035 "Head"
  4012 "Floor 3"
  2010 "PO 1, Main\r\nStreet 5"
  2012 "Town"
  2013 "BE"
  2014 "1"
  2016 "Land"
  4006 "Main 5\r\nTown"
  1500 "http://a.example/?b=41;c"
  4003 "19650314"
  3002 "C:\\new;x"
  1000 "a@b"
  lost: KEY: 1, line 14
  lost: bytes that are no text in their charset: 1, line 3

A mail program of version 3.0, in small letters and with LF.

  $ told <<'END'
  > begin:vcard
  > version:3.0
  > n:Doe;Jane;Mary,Ann;;
  > fn:Jane Doe
  > nickname:Jay\, J
  > tel;type="work,voice":1
  > tel;type=fax,home:2
  > email;type=internet:a@b
  > adr;type=work,postal:;;High St 1;Town;;;
  > note:first\nsecond\, wi
  >  th a fold\; and
  >   a blank\\n
  > categories:Friends,Work\, old
  > uid:4711
  > photo;encoding=b;type=jpeg:AAAA
  >  BBBB
  > x-empty:
  > prodid:-//x
  > end:vcard
  > END
  2 "Doe"
  1 "Jane"
    group 1 "Friends"
    group 2 "Work, old"
  3 "Mary,Ann"
  5 "Jane Doe"
  4005 "Jay, J"
  100 "1"
  111 "2"
  1000 "a@b"
  2010 "High St 1"
  2012 "Town"
  3002 "first\r\nsecond, with a fold; and a blank\\n"
  lost: PHOTO: 1, line 15
  lost: UID: 1, line 14

A phone that groups lines.

  $ card 3.0 'N:Doe;John;;;' 'ORG:Acme;' 'item1.EMAIL;type=INTERNET;type=pref:a@b' item1.X-LABEL:Club \
  >   'TEL;type=CELL;type=VOICE;type=pref:1' 'TEL;type=MAIN:2' \
  >   'item2.ADR;type=HOME;type=pref:;;Way 1\\nBack;Town;CA;90210;USA' 'item3.URL;type=pref:http\\://a.example' \
  >   'BDAY;value=date:1980-05-06' 'IMPP;X-SERVICE-TYPE=Chat;type=HOME:chat:me' | told
  2 "Doe"
  1 "John"
  4032 "Acme"
  1000 "a@b"
  104 "1"
  108 "2"
  2002 "Way 1\r\nBack"
  2004 "Town"
  2005 "CA"
  2006 "90210"
  2008 "USA"
  1500 "http://a.example"
  4003 "19800506"
  lost: IMPP: 1, line 12
  lost: X-LABEL: 1, line 6

Pictures, and other values in base64.

  $ card 2.1 'N:Doe;Jane;;;' 'FN:Jane Doe' 'TEL;CELL:1' \
  >   'TEL;X-Custom(CHARSET=UTF-8,ENCODING=QUOTED-PRINTABLE,=41):2' 'PHOTO;ENCODING=BASE64;JPEG:/9j/4AAQ' \
  >   ' SkZJRg==' '' NOTE:one | told
  2 "Doe"
  1 "Jane"
  5 "Jane Doe"
  104 "1"
  108 "2"
  3002 "one"
  lost: PHOTO: 1, line 7
  $ card 2.1 FN:A 'PHOTO;BASE64:' /9j/4AAQ SkZJRg== '' 'NOTE;ENCODING=B:R3LDvMOfZQ==' | told
  5 "A"
  3002 "Gr\xc3\xbc\xc3\x9fe" (esc)
  lost: PHOTO: 1, line 4
  $ card 3.0 'FN;ENCODING=B:Pz8/Pj4+YWJj TVla' | told
  5 "???>>>abcMYZ"

An address book of the web, of version 4.0.

  $ card 4.0 FN:Jane 'N:Doe;Jane;;;' 'TEL;VALUE=uri;PREF=1;TYPE="voice,cell":tel:+1-555' 'TEL;TYPE=textphone:2' \
  >   'EMAIL;TYPE=work:mailto:a@b' "ADR;TYPE=home;LABEL=\"Way 1^nTown: ^'T^'\":;;Way 1;Town;;;" GENDER:F \
  >   KIND:individual BDAY:--0314 'ORG;SORT-AS="Acme":Acme' | told
  5 "Jane"
  2 "Doe"
  1 "Jane"
  104 "+1-555"
  121 "2"
  1000 "a@b"
  4007 "Way 1\r\nTown: \"T\""
  2002 "Way 1"
  2004 "Town"
  4008 "F"
  4003 "--0314"
  4032 "Acme"
  lost: KIND: 1, line 10
  $ card 4.0 FN:A "ADR;TYPE=home;LABEL=\"a^nb^^c^'d^x\":;;Way 1" 'NOTE;CHARSET=X-NONE:b' | told
  5 "A"
  4007 "a\r\nb^c\"d^x"
  2002 "Way 1"
  3002 "b"
  lost: values in a charset that isn't known: 1, line 5

The version stands behind the rest.

  $ lines BEGIN:VCARD FN:Ann 'NOTE:a fo' ' ld\\n' PHOTO:x VERSION:3.0 TEL:1 END:VCARD BEGIN:VCARD NOTE:by '  words\\n' \
  >   VERSION:2.1 END:VCARD BEGIN:VCARD FN:C END:VCARD | told
  5 "Ann"
  3002 "a fold\r\n"
  108 "1"
  
  3002 "by words\\n"
  
  5 "C"
  lost: PHOTO: 1, line 5

Cards within a card, behind its line or on it.

  $ card 2.1 FN:A AGENT: BEGIN:VCARD VERSION:2.1 FN:B AGENT: BEGIN:VCARD END:VCARD END:VCARD TEL:1 | told
  5 "A"
  108 "1"
  lost: AGENT: 1, line 5
  $ card 2.1 FN:A 'item1.AGENT;TYPE=VCARD: BEGIN:VCARD' VERSION:2.1 FN:B TEL:2 END:VCARD TEL:1 | told
  5 "A"
  108 "1"
  lost: AGENT: 1, line 4

Soft breaks before the next card, or where none belongs.

  $ { lines BEGIN:VCARD VERSION:2.1 FN:A 'NOTE;ENCODING=QUOTED-PRINTABLE:b='; card 2.1 FN:C; } | told
  5 "A"
  3002 "b"
  
  5 "C"
  lost: ends of cards: 1, line 5
  $ card 2.1 'NOTE;ENCODING=QUOTED-PRINTABLE:a=' 'item1.TEL;CELL:1' 'ROLE;QUOTED-PRINTABLE:c=' UID:x \
  >   'TITLE;ENCODING=QUOTED-PRINTABLE:b=0D=0A=' 'TEL: 2' 'NICKNAME;QUOTED-PRINTABLE:see =' 'Url: x' | told
  3002 "a"
  104 "1"
  4009 "c"
  4035 "b\r\nTEL: 2"
  4005 "see Url: x"
  lost: UID: 1, line 6

Lines between cards, lines that belong to the value before them, and cards without an end.

  $ { lines 'text before'; card 2.1 FN:A NOTE:one two '' TEL:1; } | told
  5 "A"
  3002 "one\r\ntwo"
  108 "1"
  lost: lines outside of cards: 1, line 1
  $ { lines BEGIN:VCARD VERSION:3.0 FN:A; card 3.0 FN:B; printf '\xEF\xBB\xBF'; card 3.0 FN:C
  >   lines BEGIN:VCARD FN:D X-A:1; } | told
  5 "A"
  
  5 "B"
  
  5 "C"
  record 4, byte 121: damaged from here on and left out
  lost: ends of cards: 1, line 4

Several addresses of a kind; and what is no value.

  $ card 3.0 FN:A 'ADR;TYPE=HOME:;;One;;;;' 'ADR;TYPE=HOME:;;Two;;;;' 'ADR:;;Three;Town;;;' 'ADR;TYPE=WORK:;;Four' |
  >   told
  5 "A"
  2002 "One"
  2032 "Two"
  4000 "Three, Town"
  2010 "Four"
  $ card 3.0 FN:A 'N:Doe;J' 'N:Roe;R' 'ADR:;;;;;;' CATEGORIES: 'CATEGORIES: , x,' ORG: BDAY:1965-03-14T00:00:00Z \
  >   BDAY:1965-03-14T08:00:00 'X-ORVALE-FIELD;X-ORVALE-ID=x:y' 'X-ORVALE-EXTRA:1;2;3' 'X-ORVALE-EXTRA:5;0;3;text' \
  >   'X-ORVALE-GROUP:5;9;3;text' | told
  5 "A"
  2 "Doe"
  1 "J"
    group 1 "x"
  4003 "19650314"
  4003 "1965-03-14T08:00:00"
  lost: N behind the first: 1, line 5
  lost: X-ORVALE-EXTRA: 1, line 13
  lost: X-ORVALE-FIELD: 1, line 12

Line ends and encodings of the file don't matter; only the place of the damage moves.

  $ { card 3.0 'FN:Jürgen 😀' NOTE:a ' b' x-a:1; card 3.0 FN:B; lines BEGIN:VCARD; } >whole
  $ told <whole
  5 "J\xc3\xbcrgen \xf0\x9f\x98\x80" (esc)
  3002 "ab"
  
  5 "B"
  record 3, byte 116: damaged from here on and left out
  lost: X-A: 1, line 6
  $ mv told.json wanted.json
  $ alike() {
  >   cat >each
  >   told <each | tail -n 2
  >   cmp told.json wanted.json
  >   orvale info --json each 2>&1 | grep '"format"'
  > }
  $ tr -d '\r' <whole | alike
  record 3, byte 105: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",
  $ tr -d '\n' <whole | alike
  record 3, byte 105: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",
  $ { printf '\xEF\xBB\xBF'; cat whole; } | alike
  record 3, byte 119: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",
  $ { printf '\xFF\xFE'; iconv -f UTF-8 -t UTF-16LE whole; } | alike
  record 3, byte 228: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",
  $ { printf '\xFE\xFF'; iconv -f UTF-8 -t UTF-16BE whole; } | alike
  record 3, byte 228: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",
  $ iconv -f UTF-8 -t UTF-16LE whole | alike
  record 3, byte 226: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",
  $ iconv -f UTF-8 -t UTF-16BE whole | alike
  record 3, byte 226: damaged from here on and left out
  lost: X-A: 1, line 6
    "format": "vcf",

Without a charset of their own, values that are no UTF-8 are in the code page of the work.

  $ card 3.0 'FN:M\xFCller' 'ADR;TYPE=home:;;Stra\xDFe;K\xF6ln' NOTE:Grüße >a.vcf
  $ orvale show --codepage 1252 a.vcf
  M\xc3\xbcller (esc)
    home street             Stra\xc3\x9fe (esc)
    home city               K\xc3\xb6ln (esc)
    note                    Gr\xc3\xbc\xc3\x9fe (esc)
  
  1 contact

A file cut anywhere gives its whole cards.

  $ card 3.0 FN:A 'PHOTO;ENCODING=b:AA' ' A=' >first
  $ { cat first; card 2.1 'NOTE;ENCODING=QUOTED-PRINTABLE:=C3=' =BC; } >whole
  $ end=$(($(wc -c <whole) - 2))
  $ for ((length = 1; length < end; ++length)); do head -c $length whole >cut.$length; done
  $ orvale info --format vcf cut.* 2>/dev/null | grep -o '[0-9]* records*' | sort | uniq -c | sed 's/^ *//'
  66 0 records
  79 1 record
  $ echo $((end + 2 - $(wc -c <first)))
  79

The module's reader keeps the files whose every line it takes, with or without their end.

  $ kept() { cat >a.txt; orvale info --json a.txt 2>/dev/null | grep '"format"'; }
  $ { card 2.1 'N:A;B' 'TEL;CELL:1' 'tel;home;voice:2' REV:x; lines ''; } >plain
  $ cat plain plain | kept
    "format": "vcard",
  $ head -c -13 plain | kept
    "format": "vcard",
  $ head -c -16 plain | kept
    "format": "vcard",
  $ card 2.1 'NOTE:M\xFCller' | kept
    "format": "vcard",
  $ { lines x; cat plain; } | kept
    "format": "vcf",
  $ { cat plain; lines x; } | kept
    "format": "vcf",
  $ card 3.0 FN:A | sed 's/^BEGIN:VCARD/& \t/' | iconv -f UTF-8 -t UTF-16LE | kept
    "format": "vcf",
  $ { cat plain; card 3.0 FN:A; } | kept
    "format": "vcf",
  $ card 2.1 'TEL;VOICE;CELL:1' | kept
    "format": "vcf",
  $ card 2.1 'NOTE;ENCODING=QUOTED-PRINTABLE:a=' FN:b | kept
    "format": "vcf",
  $ lines BEGIN:VCARD VERSION:2.1 'NOTE;ENCODING=QUOTED-PRINTABLE:a=' | kept
    "format": "vcf",
  $ card 2.1 NOTE:a ' b' | kept
    "format": "vcf",
  $ card 2.1 "NOTE:$(printf 'a%.0s' {1..2048})" | kept
    "format": "vcf",
  $ tr -d '\r' <plain | kept
    "format": "vcf",
  $ tr -d '\n' <plain | kept
    "format": "vcf",
  $ card 3.0 FN:A | orvale info --json --format vcard - | grep records
  orvale: standard input: record 1, byte 0: damaged from here on
    "records": 0,
