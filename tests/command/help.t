  $ . "$TESTDIR/setup.sh"

The overview names every verb.

  $ orvale help | tee overview
  Usage: orvale VERB [OPTIONS] ...
  
  Lists, shows, checks and converts files of a mobile phone's contacts, calendar,
  messages and mails.
  
  Verbs:
    formats                       list the formats
    info FILE...                  tell what files are and whether they are whole
    show FILE                     print the records of a file
    view FILE...                  show the records of files as a page in the
                                  browser
    diff FILE FILE                tell what the records of two files differ in
    convert INPUT... OUTPUT       write the records of files into a file of
                                  another format
    log [off|file|debug|both]     show or set the log of the module in use
    help [VERB]                   tell the verbs, or the options of one
    --version                     tell the version and the module in use
  
  Exit codes:
    0  all was done
    1  a file failed: it is missing, damaged, not recognised, or exists already
    2  the command line can't be acted on
    3  --strict met a loss
  
  'orvale help VERB' tells the options of a verb, and examples. 'orvale formats'
  lists the formats.
  $ orvale --help | cmp - overview

A verb tells its options and examples.

  $ orvale help info | tee told
  Usage: orvale info [OPTIONS] FILE...
  
  Tell what files are and whether they are whole. A folder of files that hold one
  record each counts as well, and - is standard input, whose format --format
  names. The result is 1 if a file can't be read, is damaged or cut short.
  
  Options:
    --json              print the result as JSON
    --format NAME       the format of the file, in place of the one that is found
    --codepage N        the code page of text in files, such as 1252 (65001 is
                        UTF-8)
    --module PATH       the module to work with, in place of the one beside the
                        command
    -h, --help          tell this
  
  Examples:
    orvale info contacts.qzs mails.eml
        Two files, a line for each
    orvale info --json calendar.cal
        The same for a script
  $ for words in 'info --help' 'info -h' 'info --json missing --help' '--help info'; do orvale $words | cmp - told; done

The version tells the module in use, which isn't loaded for it.

  $ echo 'no module' >Other.so
  $ for words in '' '--module Other.so' '--module=missing.so'; do
  >   orvale --version $words | sed -E 's,/.*/,,; s/^(orvale) [0-9]+\.[0-9]+\.[0-9]+$/\1 VERSION/'
  > done
  orvale VERSION
  module: Orvale.so
  orvale VERSION
  module: Other.so
  orvale VERSION
  module: none at missing.so
