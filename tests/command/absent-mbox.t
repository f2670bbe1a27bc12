A build without a library knows the files of its format, and tells what it lacks for them.

  $ . "$TESTDIR/setup.sh"
  $ printf '%s\n' 'From a Mon Mar 17 06:02:11 2008' 'Subject: x' '' >in.txt
  $ document email >in.json
  $ orvale info in.txt
  orvale: in.txt: the format mbox needs GMime, which this build goes without
  [1]
  $ orvale show --format mbox in.txt
  orvale: the format mbox needs GMime, which this build goes without
  [2]
  $ orvale convert in.json out.mbox
  orvale: the format mbox needs GMime, which this build goes without
  [2]
  $ orvale formats | grep '^mbox '
  mbox            email       .mbox   needs GMime, which this build goes without
