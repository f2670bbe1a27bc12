#include "frame/RecordLog.h"

#include "frame/Log.h"
#include "records/ContactItem.h"

namespace orvale {

void LogContact(const CContactItem* contact) noexcept {
    if (!LogEnabled() || contact == nullptr) return;
    LogFormat(u"Storage : %d  Memory Location : %d Index : %d Operation : %s\r\n", contact->Storage,
              contact->MemoryLocation, contact->Index, u"None");
    for (const auto& field : contact->fields)
        if (field) LogFormat(u"Type : %d  Data : %s\r\n", field->Type, field->Data);
}

}  // namespace orvale
