#include "command/exchange/MboxFile.h"
#include "support/OwnFormats.h"

ORVALE_FUZZ_TARGET("mbox") {
    orvale::fuzz::AskOwnExact<CEmailItem>(orvale::kMboxFormat, input,
                                          "From a Mon Mar 17 06:02:11 2008\nSubject: =?utf-8?Q?a?=\n\ntext\n");
}
