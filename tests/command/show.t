  $ . "$TESTDIR/setup.sh"
  $ tables() { document "$@" >in.json; orvale show --csv in.json | tee plain; orvale show --safe-csv in.json | grep -vxF -f plain; }

A contact is a block.

  $ document contacts '{"storage": 2, "fields": [{"type": 1, "data": "Ann", "groups":
  >     [{"id": 1, "name": "Work"}, {"id": 2, "name": ""}]}, {"type": 2, "data": "Lee"},
  >     {"type": 4711, "data": "x", "extraNumber": 5, "extraText": "y"},
  >     {"type": 3002, "data": "first\r\nsecond\u001b[31m"}]}' '{}' >in.json
  $ orvale show in.json | tee plain
  Ann Lee  [Work, group 2]
    storage                 2
    given name              Ann
    family name             Lee
    type 4711               x
                            (5 y)
    note                    first
                            second^[[31m
  
  (no name)
  
  2 contacts
  $ orvale show --color=never in.json | cmp - plain
  $ orvale show --color=always in.json | head -n 2
  \x1b[1mAnn Lee\x1b[0m  \x1b[2m[Work, group 2]\x1b[0m (esc)
    \x1b[36mstorage\x1b[0m                 2 (esc)
  $ orvale show --profile-only in.json
  no profile

Steering characters are escapes in JSON.

  $ document sms '{"content": "\u009b\u202e é"}' >in.json
  $ orvale show --json in.json | grep content
        "content": "\\u009b\\u202e \xc3\xa9", (esc)

Tables for spreadsheets, and where a safe one differs.

  $ tables contacts '{"fields": [{"type": 5, "data": "Ann \"A\", Lee", "groups":
  >     [{"id": 1, "name": "Work"}, {"id": 2, "name": ""}]}, {"type": 104, "data": "+49"},
  >     {"type": 104, "data": "=1+1"}, {"type": 4711, "data": "a\r\nb"}]}' \
  >   '{"storage": 2, "fields": [{"type": 3002, "data": "é", "extraNumber": 5, "extraText": "y"}]}'
  storage,full name,mobile phone,mobile phone (2),note,type 4711,groups,extras\r (esc)
  0,"Ann ""A"", Lee",+49,=1+1,,"a\r (esc)
  b",Work; group 2,\r (esc)
  2,,,,\xc3\xa9,,,note: 5 y\r (esc)
  0,"Ann ""A"", Lee",'+49,'=1+1,,"a\r (esc)
  $ tables contacts
  storage\r (esc)
  [1]
  $ tables sms '{"listtype": 3, "name": "-x", "content": "@y", "time": "＝1"}' \
  >   '{"phonenumber": "＋1", "content": "－2", "time": "＠3"}'
  storageid,status,listtype,phonenumber,content,time,name,smstype\r (esc)
  0,0,3,,@y,\xef\xbc\x9d1,-x,0\r (esc)
  0,0,0,\xef\xbc\x8b1,\xef\xbc\x8d2,\xef\xbc\xa03,,0\r (esc)
  0,0,3,,'@y,'\xef\xbc\x9d1,'-x,0\r (esc)
  0,0,0,'\xef\xbc\x8b1,'\xef\xbc\x8d2,'\xef\xbc\xa03,,0\r (esc)
  $ tables email '{"from": "a@b", "accessory": ["a.jpg", "=b"]}'
  type,box,device,status,account,folder,from,to,cc,bcc,subject,body,received,sent,accessory,importance,symbol,sensitivity,entryid\r (esc)
  0,,0,0,,,a@b,,,,,,,,a.jpg; =b,EMAIL_IMPORTANCE_NONE,EMAIL_SYMBOL_NONE,EMAIL_SENSITIVTY_NONE,\r (esc)
  [1]
  $ tables calendar '{"itemType": 1, "dtstart": "2010-07-26T06:00:00",
  >   "fields": [{"type": 3000, "data": "x"}, {"type": 3000, "data": "y"}]}' '{"dtstart": 1e300}'
  itemType,dtstart,dtend,ringid,ring,vibration,secret,duration,recurtype,recurday,recurmonth,recurinstance,recurweekday,recurweekmask,recurinterval,recurrepeat,recurenddate,recurhasenddate,remindermin,priority,complete,reserve1,reserve2,category,operation,description,description (2)\r (esc)
  PHONE_TODO_TYPE,2010-07-26 06:00:00,,0,,0,0,0,RECURS_NONE,0,0,0,0,0,1,0,,0,0,CAL_TASK_PRIORITY_NORMAL,0,0,0,CATE_MISCELLANEOUS,0,x,y\r (esc)
  -1,1.0000000000000001e+300,,0,,0,0,0,RECURS_NONE,0,0,0,0,0,1,0,,0,0,CAL_TASK_PRIORITY_NORMAL,0,0,0,CATE_MISCELLANEOUS,0,,\r (esc)
  '-1,1.0000000000000001e+300,,0,,0,0,0,RECURS_NONE,0,0,0,0,0,1,0,,0,0,CAL_TASK_PRIORITY_NORMAL,0,0,0,CATE_MISCELLANEOUS,0,,\r (esc)

A contact of many values widens the table no further than its bounds: its storage, 500 types twice, the others.

  $ document contacts "$(contact $(seq -f %g=v 0 1499; seq -f %g=v 0 1499))" >in.json
  $ orvale show --csv in.json | head -n 1 | tr -cd , | wc -c
  1001
