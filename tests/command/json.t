  $ . "$TESTDIR/setup.sh"
  $ head='{"orvale": 1, "kind": "contacts", '
  $ shown() { for text; do printf '%b' "$text" >in.json; orvale show --json in.json >out || echo $?; done }
  $ second() { for record; do shown "$head\"records\": [{}, $record]}"; done }
  $ field() { for each; do second "{\"fields\": [$each]}"; done }

What is good: names of values beside them, whatever they are, and a document without records.

  $ field '{"type": 1, "typeName": 7, "data": "x"}'
  $ shown "$head\"profile\": null}"

A document as a whole.

  $ shown '' "$head\"records\": [\\n{\"storage\": nul}]}" "$head\"records\": []}\\0x" "$head\"records\": []}x" \
  >   "$head\"x\": 1}" '{"orvale": 2}' '{"orvale": 1, "kind": "x"}' '\0357\0273x' '{"orvale": 1}' \
  >   '{"orvale": 1, "records": []}' "$head\"records\": [], \"profile\": null}" "$head\"kind\": \"sms\"}"
  orvale: in.json: line 1: the document ends too early
  1
  orvale: in.json: line 2: no JSON here
  1
  orvale: in.json: line 1: something stands behind the document
  1
  orvale: in.json: line 1: something stands behind the document
  1
  orvale: in.json: x: unknown key
  1
  orvale: in.json: orvale: only documents of version 1 are known
  1
  orvale: in.json: kind: no kind of data; contacts, calendar, sms and email are
  1
  orvale: in.json: line 1: no JSON document
  1
  orvale: in.json: kind: the key is missing
  1
  orvale: in.json: line 1: "kind" has to stand before "records"
  1
  orvale: in.json: profile: has to stand before "records"
  1
  orvale: in.json: kind: the key stands twice
  1
  $ second "$(printf '%0100000d' 0 | tr 0 '[')"
  orvale: in.json: line 1: nested too deeply
  1

One that is cut.

  $ shown "$head\"records\": [{\"fields\": [{\"data\": \"x" "$head\"records\": [{}"
  orvale: in.json: record 1, byte 46: damaged from here on
  1
  orvale: in.json: record 2, byte 48: damaged from here on
  1

A record in it.

  $ second 7 '{"fields": {}}'
  orvale: in.json: records[1]: expected an object
  1
  orvale: in.json: records[1].fields: expected a list
  1
  $ field '{"type": 1, "type": 1}' '{"tpye": 1}' '{"typeName": "x"}' '{"dataName": 1}' \
  >   "{\"\\\\u001b[31m$(printf '%050d' 0 | tr 0 k)\": 1}"
  orvale: in.json: records[1].fields[0].type: the key stands twice
  1
  orvale: in.json: records[1].fields[0].tpye: unknown key
  1
  orvale: in.json: records[1].fields[0].typeName: unknown key
  1
  orvale: in.json: records[1].fields[0].dataName: unknown key
  1
  orvale: in.json: records[1].fields[0].^[[31mkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkkk\xe2\x80\xa6: unknown key (esc)
  1
  $ field '{"groups": [{"id": 1}, {"id": 1}]}' '{"groups": [{"id": 1, "name": null}]}'
  orvale: in.json: records[1].fields[0].groups: an id stands twice
  1
  orvale: in.json: records[1].fields[0].groups[0].name: expected a text
  1
  $ field '{"type": 1.0}' '{"type": 2147483648}' '{"type": 18446744073709551615}' '{"extraNumber": -1}'
  orvale: in.json: records[1].fields[0].type: expected a whole number
  1
  orvale: in.json: records[1].fields[0].type: out of range
  1
  orvale: in.json: records[1].fields[0].type: out of range
  1
  orvale: in.json: records[1].fields[0].extraNumber: out of range
  1
  $ field '{"data": 1}' '{"data": true}' '{"data": "\\ud800"}' '{"data": "\0377"}'
  orvale: in.json: records[1].fields[0].data: expected a text
  1
  orvale: in.json: records[1].fields[0].data: expected a text
  1
  orvale: in.json: line 1: no JSON here
  1
  orvale: in.json: line 1: no JSON here
  1
