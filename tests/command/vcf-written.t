  $ . "$TESTDIR/setup.sh"

A rich contact comes back whole from both versions: only the order of its values is another one. Every line fits.

  $ extras=', "extraNumber": 4294967295, "extraText": "x;\ty",
  >   "groups": [{"id": 273, "name": "A,B"}, {"id": 3, "name": ""}, {"id": -5, "name": "C;D"}]'
  $ for type in $types $types; do all+=("$type=Ann;Müller, \\\\n\\r\\nΕλένη 山田 😀 \\\"^n\\\" $type"); done
  $ all=$(contact "${all[@]}") named="{\"type\": 1, \"data\": \"A\" $extras}"
  $ storage=$(contact '4032=Acme;Sales' '2000=Street 1' 2007=BE 4003=19650314 4008=F 105=1)
  $ day=$(contact 4003=1965-03-14 4004=Acme 4002=Sales 2007=BE 5=B)
  $ document contacts "${all%]*}, {\"type\": -7, \"data\": \"\" $extras}, $named, {\"type\": -1, \"data\": \"label\"},
  >   {\"type\": 5, \"data\": \"\"}]}" "{\"storage\": -3, ${storage#?}" "${day%]*}, $named]}" "$(contact)" >in.json
  $ orvale convert --strict in.json in.qzs
  $ orvale show --json in.qzs | sort >wanted
  $ for version in 3.0 4.0; do
  >   orvale convert --force --strict --vcard-version $version in.qzs a.vcf
  >   orvale convert --force --strict a.vcf b.qzs
  >   orvale show --json b.qzs | sort | cmp - wanted
  >   orvale convert --force --strict --vcard-version $version b.qzs c.vcf
  >   grep -c "^VERSION:$version"$'\r$' a.vcf
  >   grep -axv $'[^\r]*\r' a.vcf
  >   LC_ALL=C grep -aE '^.{77}' a.vcf
  >   cmp a.vcf c.vcf
  > done
  orvale: a.vcf: moved: order of the values: 2, first in contact 1
  4
  orvale: a.vcf: moved: order of the values: 2, first in contact 1
  4

Values that a card can't hold, or not as they stand, leave those beside them what they are.

  $ odd=$(contact 104=TEL:1 105=tel: '1000=mail\u0001to:a@b' '3002=\u0001')
  $ document contacts "${odd%]*}, {\"type\": 3002, \"data\": \"b\", \"groups\": [{\"id\": 1, \"name\": \"x\"}]},
  >   {\"type\": 2, \"data\": \"\u007F\"}, {\"type\": 4007, \"data\": \"\u0002\"}]}" >in.json
  $ orvale convert --force --vcard-version 3.0 in.json a.vcf && told <a.vcf
  orvale: a.vcf: changed: email: 1, first in contact 1
  orvale: a.vcf: changed: family name: 1, first in contact 1
  orvale: a.vcf: changed: home label: 1, first in contact 1
  orvale: a.vcf: changed: note: 1, first in contact 1
  104 "TEL:1"
  105 "tel:"
  1000 "mailto:a@b"
  3002 ""
  3002 "b"
    group 1 "x"
  2 ""
  4007 ""
  $ mv told.json wanted.json
  $ orvale convert --force --vcard-version 4.0 in.json b.vcf && told <b.vcf >/dev/null && cmp told.json wanted.json
  orvale: b.vcf: changed: email: 1, first in contact 1
  orvale: b.vcf: changed: family name: 1, first in contact 1
  orvale: b.vcf: changed: home label: 1, first in contact 1
  orvale: b.vcf: changed: note: 1, first in contact 1

What today's phones get to see.

  $ document contacts "$(contact 2=Doe 1=Jane '5=Jane Doe' 104=+1,2 111=2 113=3 118=4 103=5 1000=a@b \
  >   '1500=http://a.example/;,' '2002=Way 1' 2008=Land '4007=Way 1' 4003=19650314 4008=F '4032=Acme;Sales' \
  >   '3002=a;b\\c\r\nd' 4=x)" >in.json
  $ orvale convert --force --to vcf in.json a.vcf && tr -d '\r' <a.vcf
  BEGIN:VCARD
  VERSION:3.0
  N:Doe;Jane;;;
  FN:Jane Doe
  TEL;TYPE=CELL:+1\,2
  TEL;TYPE=HOME,FAX:2
  TEL;TYPE=X-CALLBACK:3
  TEL;TYPE=PREF:4
  TEL;TYPE=HOME;X-ORVALE-ID=103:5
  EMAIL;TYPE=INTERNET:a@b
  URL:http://a.example/;,
  ADR;TYPE=HOME:;;Way 1;;;;Land
  LABEL;TYPE=HOME:Way 1
  BDAY:1965-03-14
  X-GENDER:F
  ORG;X-ORVALE-ID=4032:Acme;Sales
  NOTE:a\;b\\c\nd
  X-ORVALE-FIELD;X-ORVALE-ID=4:x
  END:VCARD
  $ orvale convert --force --vcard-version 4.0 in.json b.vcf && tr -d '\r' <b.vcf
  orvale: b.vcf: moved: order of the values: 1, first in contact 1
  BEGIN:VCARD
  VERSION:4.0
  N:Doe;Jane;;;
  FN:Jane Doe
  TEL;TYPE=cell:+1\,2
  TEL;TYPE=home,fax:2
  TEL;TYPE=x-callback:3
  TEL;PREF=1:4
  TEL;TYPE=home;X-ORVALE-ID=103:5
  EMAIL:a@b
  URL:http://a.example/;,
  ADR;TYPE=home;LABEL="Way 1":;;Way 1;;;;Land
  BDAY:19650314
  GENDER:F
  ORG;X-ORVALE-ID=4032:Acme;Sales
  NOTE:a\;b\\c\nd
  X-ORVALE-FIELD;X-ORVALE-ID=4:x
  END:VCARD
  $ orvale convert --vcard-version 4.0 in.json c.qzs
  orvale: --vcard-version is of the format vcf alone
  [2]
  $ orvale convert --vcard-version 2.1 in.json d.vcf
  orvale: --vcard-version takes 3.0 or 4.0, not '2.1'
  [2]
  $ orvale convert in.json e.vcf 2>/dev/null
  $ grep VERSION e.vcf
  VERSION:2.1\r (esc)

Days and genders keep their form: as a contact has them, and as cards of 3.0 and of 4.0 say them.

  $ forms() {
  >   local version line
  >   for line; do
  >     card 4.0 FN:A "$line" >a.vcf
  >     {
  >       told <a.vcf | sed 1d
  >       mv told.json wanted.json
  >       for version in 3.0 4.0; do
  >         orvale convert --force --vcard-version $version a.vcf b.vcf
  >         grep -vE '^(BEGIN|VERSION|N|FN|END)[:;]' b.vcf
  >         told <b.vcf >/dev/null
  >         cmp told.json wanted.json
  >       done
  >     } 2>&1 | tr -d '\r' | paste -sd ' '
  >   done
  > }
  $ forms BDAY:19850412 BDAY:1985-04-12T00:00:00Z BDAY:--0412 BDAY:--04-12 BDAY:1985-04 BDAY:1985 BDAY:--04 BDAY:---12 \
  >   BDAY:--1341
  4003 "19850412" BDAY:1985-04-12 BDAY:19850412
  4003 "19850412" BDAY:1985-04-12 BDAY:19850412
  4003 "--0412" X-ORVALE-FIELD;X-ORVALE-ID=4003:--0412 BDAY:--0412
  4003 "--0412" X-ORVALE-FIELD;X-ORVALE-ID=4003:--0412 BDAY:--0412
  4003 "1985-04" X-ORVALE-FIELD;X-ORVALE-ID=4003:1985-04 BDAY:1985-04
  4003 "1985" X-ORVALE-FIELD;X-ORVALE-ID=4003:1985 BDAY:1985
  4003 "--04" X-ORVALE-FIELD;X-ORVALE-ID=4003:--04 BDAY:--04
  4003 "---12" X-ORVALE-FIELD;X-ORVALE-ID=4003:---12 BDAY:---12
  4003 "--1341" X-ORVALE-FIELD;X-ORVALE-ID=4003:--1341 BDAY;VALUE=text;X-ORVALE-ID=4003:--1341
  $ forms GENDER:M 'GENDER:M;Fellow' 'GENDER:;Fellow' 'GENDER:O;a\\, b' 'GENDER:;M\\, '
  4008 "M" X-GENDER:M GENDER:M
  4008 "M, Fellow" X-GENDER:M\, Fellow GENDER:M;Fellow
  4008 "Fellow" X-GENDER:Fellow GENDER:;Fellow
  4008 "O, a, b" X-GENDER:O\, a\, b GENDER:O;a\, b
  4008 "M, " X-GENDER:M\,  GENDER:;M\, 
