The mailbox of Python's standard library takes what is written, and what it writes is read. Skipped where there is
no python3.

  $ . "$TESTDIR/setup.sh"
  $ export TZ=Europe/Berlin
  $ command -v python3 >/dev/null || exit 80
  $ orvale convert --strict "$samples/mails.eml" a.mbox
  $ python3 - <<'END'
  > import email.policy, mailbox
  > make = lambda f: email.message_from_binary_file(f, policy=email.policy.default)
  > first, second, third = mailbox.mbox('a.mbox', factory=make)
  > print(first.defects, first['Subject'], first['To'], first['Date'].datetime.isoformat(), first.get_content()[:75])
  > back = mailbox.mbox('back.mbox')
  > for message in mailbox.mbox('a.mbox'):
  >     back.add(message)
  > back.flush()
  > END
  [] Photos of Saturday juergen.mueller@example.com 2008-03-16T21:14:58+01:00 Here they are.
  
  The second one is my favourite. Grüße!
  
  $ cmp <(orvale show back.mbox) <(orvale show a.mbox)
