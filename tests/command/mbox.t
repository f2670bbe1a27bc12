  $ . "$TESTDIR/setup.sh"
  $ export TZ=Europe/Berlin
  $ begin='From zoe@example.com Mon Mar 17 06:02:11 2008\n'
  $ mailbox() { printf '%b' "$begin$1" >in.mbox; }

Emails as a phone may hold them come back to the last bit, in lines that every mail program takes.

  $ document email '{"from": "Müller, Jürgen <a@b>; c@d", "to": " x\r\ny ", "cc": "nobody", "bcc": "\"Lee, A\" <b@c>"}' \
  >   '{"from": "Zoë <z@x>", "to": "a@b, c@d", "subject": "Grüße 山田 😀, sehr lang: und noch ein wenig länger, damit die Zeile gewiss gebrochen werden muss, auch mitten darin"}' \
  >   '{"subject": "a  b =?utf-8?Q?x?= \u0001 ü", "entryid": "<a@b>"}' '{"subject": " ", "entryid": "a@b.c"}' \
  >   '{"subject": "x\nBcc: y", "entryid": "4711"}' '{"body": "From x\r\n>From y\r\n\r\nFrom z\r\n"}' \
  >   '{"body": "lf\nonly\u0001\r\r\n"}' '{"body": ""}' '{"body": "\r\n"}' '{"body": "x\r\n\r\n\r\n"}' '{"body": "x "}' \
  >   '{"body": "trail  \r\nü .\r\n.\r\n--b\r\n=3D "}' '{"sent": "2010-03-28T02:30:00", "received": "2010-10-31T02:30:00"}' \
  >   '{"sent": 1e300, "received": 40000.123456}' '{"sent": "1850-01-01T00:00:00", "received": "9999-12-31T00:00:00"}' \
  >   '{"type": 53, "box": "Póst", "folder": "a%20b?", "account": "<id>1</id>", "device": -1}' \
  >   '{"importance": 1, "symbol": 7, "sensitivity": 2, "status": 1}' \
  >   '{"importance": 9, "symbol": -7, "sensitivity": 1, "status": 65541}' \
  >   '{"status": 2, "sensitivity": 4, "accessory": ["a b%.jpg", "", "ü"]}' \
  >   "{\"body\": \"$(printf 'x%.0s' {1..1000})\"}" >in.json
  $ orvale convert in.json in.eml
  $ orvale convert --strict in.eml a.mbox
  $ orvale convert --strict a.mbox out.eml
  $ orvale diff in.eml out.eml
  emails: 20 the same
  $ LC_ALL=C awk 'length > 998' a.mbox
  $ orvale info a.mbox
  a.mbox: mbox (email), version 1, VERIFY_OK (0), 20 records
  $ document email >none.json; orvale convert --strict none.json none.mbox

Half a character, which no mailbox tells.

  $ document email '{"subject": "Re 中"}' >mail.json
  $ orvale convert mail.json half.eml
  $ LC_ALL=C sed -i 's/\x2D\x4E/\x00\xD8/' half.eml
  $ orvale convert --strict half.eml half.mbox
  orvale: half.mbox: lost: halves of characters that a message can't tell: 1, first in half.mbox
  orvale: half.mbox: not written, for --strict takes no loss
  [3]

Parts give their text and their names.

  $ shown() {
  >   mailbox "$1"
  >   orvale show --json --format mbox in.mbox | grep -E '^ *"(subject|from|to|body|received|sent|entryid|importance|sensitivity|status)"|^ {8}"' | grep -v ': ""\|: 0'
  >   orvale convert --force --from mbox in.mbox a.eml
  >   orvale convert --force --from mbox in.mbox b.mbox
  > }
  $ shown 'Subject: =?iso-8859-1?Q?gr=FC=DFe?= =?utf-8?B?IPCfmIA=?=\nMIME-Version: 1.0
  > Content-Type: multipart/mixed; boundary=b\n\n--b\nContent-Type: multipart/alternative; boundary=c\n\n--c
  > Content-Type: text/html\n\n<p>no\n--c\nContent-Type: text/plain; charset=iso-8859-1
  > Content-Transfer-Encoding: quoted-printable\n\nGr=FC=DFe=\n!\n>From here\n--c--\n--b\nContent-Type: image/png
  > Content-Disposition: attachment; filename*=utf-8'"''"'gr%C3%BC.png
  > Content-Transfer-Encoding: base64\n\niVBO\n--b\nContent-Type: message/rfc822\n\nSubject: inner\n\ninner\n--b--\n'
        "subject": "grüße 😀",
        "body": "Grüße!\r\nFrom here",
        "received": "2008-03-17T07:02:11",
        "sent": null,
          "grü.png",
          "message/rfc822"
  orvale: a.eml: lost: HTML texts beside the plain ones: 1, first in in.mbox, line 1
  orvale: a.eml: lost: data of attachments: 2, first in in.mbox, line 1
  orvale: b.mbox: lost: HTML texts beside the plain ones: 1, first in in.mbox, line 1
  orvale: b.mbox: lost: data of attachments: 2, first in in.mbox, line 1
  $ shown 'Content-Type: text/html; charset=utf-8\n\n<html><head><title>t</title><style>p{}</style></head><body>
  > <p>One &amp; two</p><p>Zw&ouml;lf &#252; &#x1F600; &unknown; a\n<!-- no > no -->b<br/>end</p><script>x()</script>'
        "body": "One & two\r\nZwölf ü 😀 &unknown; a b\r\nend",
        "received": "2008-03-17T07:02:11",
        "sent": null,
  orvale: a.eml: lost: the looks of HTML texts: 1, first in in.mbox, line 1
  orvale: b.mbox: lost: the looks of HTML texts: 1, first in in.mbox, line 1
  $ shown 'Content-Type: multipart/mixed; boundary=b\n
  > --b\nContent-Type: text/plain; charset=us-ascii\n\nGr\0374\0337e
  > --b\nContent-Type: text/plain; charset=us-ascii\n\nGrüße
  > --b\nContent-Type: text/plain; charset=x-unknown\n\nGr\0374\0337e\n--b--\n'
        "body": "Grüße\r\n\r\nGrüße\r\n\r\nGrüße",
        "received": "2008-03-17T07:02:11",
        "sent": null,
  orvale: a.eml: lost: texts that aren't in the charset that they name: 2, first in in.mbox, line 1
  orvale: b.mbox: lost: texts that aren't in the charset that they name: 2, first in in.mbox, line 1
  $ shown 'Received: x\nDate: Mon, 17 Mar 2008 07:02:11 -0800\nFrom: =?utf-8?B?WsO2ZQ==?= <z@x>
  > To: "Lee, A" <b@c>,\n d@e\nMessage-ID: <x@y>\nImportance: High\nSensitivity: Private\nStatus: RO\nX-Spam: no\n\nText\n'
        "status": 1,
        "from": "Zöe <z@x>",
        "to": "\"Lee, A\" <b@c>, d@e",
        "body": "Text",
        "received": "2008-03-17T07:02:11",
        "sent": "2008-03-17T16:02:11",
        "importance": 3,
        "sensitivity": 3,
        "entryid": "x@y"
  orvale: a.eml: lost: lines of a head that a phone has no place for: 2, first in in.mbox, line 1
  orvale: b.mbox: lost: lines of a head that a phone has no place for: 2, first in in.mbox, line 1
  $ shown 'Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\nw7wKYgo=\n'
        "body": "ü\r\nb",
        "received": "2008-03-17T07:02:11",
        "sent": null,
  $ shown 'Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\nw7wNCmINCg==\n'
        "body": "ü\r\nb",
        "received": "2008-03-17T07:02:11",
        "sent": null,
  $ shown 'no line of a head\n\nbut text\n'
        "body": "no line of a head\r\n\r\nbut text",
        "received": "2008-03-17T07:02:11",
        "sent": null,
  orvale: a.eml: lost: messages without a head, which became texts: 1, first in in.mbox, line 1
  orvale: b.mbox: lost: messages without a head, which became texts: 1, first in in.mbox, line 1
  $ shown 'Subject: \0377\0376\n\n\0303\n'
        "subject": "ÿþ",
        "body": "Ã",
        "received": "2008-03-17T07:02:11",
        "sent": null,
  orvale: a.eml: lost: texts that aren't in the charset that they name: 1, first in in.mbox, line 1
  orvale: b.mbox: lost: texts that aren't in the charset that they name: 1, first in in.mbox, line 1
  $ shown 'Content-Type: multipart/mixed\n\n--b\n\ntext\n'
        "received": "2008-03-17T07:02:11",
        "sent": null,
  $ shown '\n\n'
        "received": "2008-03-17T07:02:11",
        "sent": null,
  $ shown ''
        "received": "2008-03-17T07:02:11",
        "sent": null,
  $ shown 'Subject: a'
        "subject": "a",
        "received": "2008-03-17T07:02:11",
        "sent": null,

A line that begins a message as the writers of mailboxes make it, and text that only looks so, behind an empty line.

  $ printf 'From a Mon Mar 17 06:02:11 2008\r\nSubject: 1\r\n\r\nText\r\nFrom inside\r\n\r\nFrom b x\r\nSubject: 2\r\n\r\n' >two.mbox
  $ orvale info two.mbox
  two.mbox: mbox (email), version 1, VERIFY_OK (0), 2 records
  $ printf 'Subject: x\n\nno mailbox\n' >bad.mbox
  $ orvale info --format mbox bad.mbox
  orvale: bad.mbox: doesn't begin with a line 'From '
  [1]
  $ received() {
  >   mailbox "Subject: first\n\nbegin\n\n$1\n${2-}\n\nend\n"
  >   TZ=UTC orvale show --json in.mbox | grep -E '"(body|received)"' | tr -s ' ' | paste -sd ''
  > }
  $ received 'From zoe@example.com Mon Mar 17 06:02:11 2008'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From zoe at example.com  Mon Mar  3 06:02:11 2008' x
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "x\r\n\r\nend", "received": "2008-03-03T06:02:11",
  $ received 'From - Mon Mar 17 06:02:11 2008' 'Subject: x'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "end", "received": "2008-03-17T06:02:11",
  $ received 'From MAILER-DAEMON Mon Mar 17 06:02 2008'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-17T06:02:00",
  $ received 'From nobody Mon Mar 17 06:02:11 PST 2008'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From z@x Mon Mar 17 06:02:11 2008 -0830'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-17T14:32:11",
  $ received 'From z@x Mon Mar 17 00:02:11 +0100 2008'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-16T23:02:11",
  $ received 'From ???@??? Mon, 17 Mar 2008 06:02:11 +0000 (UTC)'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From z@x Thu Jan  1 00:00:00 1970'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": null,
  $ received 'From "a b"@x Mon Mar 17 06:02:60 2008 remote from x'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "\r\nend", "received": "2008-03-17T06:02:59",
  $ received 'From z' 'Subject: x'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "end", "received": null,
  $ received 'From z' 'X-Mailer: x'
   "body": "begin", "received": "2008-03-17T06:02:11", "body": "end", "received": null,
  $ received 'From here on it is text' 'and so is this'
   "body": "begin\r\n\r\nFrom here on it is text\r\nand so is this\r\n\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From here on: Mon Mar 77 06:02:11 2008' 'Note: text'
   "body": "begin\r\n\r\nFrom here on: Mon Mar 77 06:02:11 2008\r\nNote: text\r\n\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From Bob, Mon Mar 17 10:00am, 2008'
   "body": "begin\r\n\r\nFrom Bob, Mon Mar 17 10:00am, 2008\r\n\r\n\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From Monday Mar 17 06:02:11 2008 on'
   "body": "begin\r\n\r\nFrom Monday Mar 17 06:02:11 2008 on\r\n\r\n\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From '
   "body": "begin\r\n\r\nFrom \r\n\r\n\r\nend", "received": "2008-03-17T06:02:11",
  $ received 'From:' 'Subject: x'
   "body": "begin\r\n\r\nFrom:\r\nSubject: x\r\n\r\nend", "received": "2008-03-17T06:02:11",

Mailboxes that cost nothing, whatever they say: the message behind is read.

  $ bounded() {
  >   { printf "$begin"; cat; printf '\n\nFrom b Mon Mar 17 06:02:11 2008\nSubject: behind\n\n'; } >in.mbox
  >   timeout 60 orvale convert --force --from mbox in.mbox a.json
  >   grep -o 'behind' a.json
  > }
  $ seq 20000 | sed 's/.*/Content-Type: multipart\/mixed; boundary=b&\n\n--b&/' | bounded
  behind
  $ yes $'Content-Type: message/rfc822\n' | head -n 40000 | bounded
  orvale: a.json: lost: data of attachments: 1, first in in.mbox, line 1
  behind
  $ { printf 'Content-Type: multipart/mixed; boundary=b\n\n'; yes -- $'--b\n\nx' | head -n 90000; } | bounded
  orvale: a.json: lost: parts of messages beyond 10000: 1, first in in.mbox, line 1
  behind
  $ seq 100000 | sed 's/.*/X-&: y/' | bounded
  orvale: a.json: lost: ends of heads of more than 262144 bytes: 1, first in in.mbox, line 24842
  orvale: a.json: lost: lines of a head that a phone has no place for: 24840, first in in.mbox, line 1
  behind
  $ { echo 'Subject: x'; yes ' y' | head -n 200000; } | bounded
  orvale: a.json: lost: ends of heads of more than 262144 bytes: 1, first in in.mbox, line 87380
  behind
  $ { echo; head -c 2M /dev/zero | tr '\0' x; echo; } | bounded
  orvale: a.json: lost: ends of lines of more than a mebibyte: 1, first in in.mbox, line 3
  behind
  $ { echo; yes "$(printf 'x%.0s' {1..63})" | head -n 300000; } | bounded
  orvale: a.json: lost: ends of messages of more than 16 mebibytes: 1, first in in.mbox, line 1
  behind
