#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The named numbers of calendar, SMS, email and phonebook, each told once: it gives the enumerator, and a row of a
/// table from which the log, the comments of the suite documents and the command take their words. The formats carry
/// the numbers alone, and any other number as well as these.
///
/// A line of a list is name, number, the text that the suite documents print beside it, and what a person calls it.
namespace orvale {

/// One named number.
struct NamedValue {
    std::int32_t value;
    std::string_view name;     ///< "CATE_MEETING"
    std::u16string_view text;  ///< as the suite documents print it, tabs and trailing blanks included; may be empty
    std::string_view caption;  ///< "meeting"; no two of a table are alike

    std::u16string WideName() const { return {name.begin(), name.end()}; }
};

using ValueTable = std::span<const NamedValue>;

/// The first row of a number, or null for a number without a name.
const NamedValue* FindValue(ValueTable table, std::int32_t value);

/// What a person calls a number: its caption, or the number itself.
std::string ValueCaption(ValueTable table, std::int32_t value);

/// What a person calls a sum of flags: the captions in the table's order, and in hexadecimal what no row names, with
/// commas between. For 0 the caption of the row 0 where there is one, else "none".
std::string FlagsCaption(ValueTable table, std::int32_t flags);

}  // namespace orvale

#define ORVALE_ENUMERATOR(name, value, text, caption) name = value,
#define ORVALE_ROW(name, value, text, caption) {value, #name, u"" text, caption},
#define ORVALE_VALUES(Enum, kTable, LIST)                      \
    enum Enum : std::int32_t { LIST(ORVALE_ENUMERATOR) };      \
    namespace orvale {                                         \
    inline constexpr NamedValue kTable[] = {LIST(ORVALE_ROW)}; \
    }                                                          \
    static_assert(true, "the caller's semicolon")

// ---- what a host wants done with a record. The first bit that is set, in this order, is the word in the log.

#define ORVALE_OPERATIONS(X)                    \
    X(OPERATION_NEW, 8, "New", "to be added")   \
    X(OPERATION_MODIFY, 4, "Modify", "changed") \
    X(OPERATION_DELETE, 32, "Delete", "to be deleted")
ORVALE_VALUES(RecordOperation, kOperations, ORVALE_OPERATIONS);

// ---- calendar

// Types of a calendar field. A field may hold any other number too.
#define ORVALE_CALENDAR_FIELDS(X)                     \
    X(CAL_FIELD_DESCRIPTION, 3000, "", "description") \
    X(CAL_FIELD_BODY, 3002, "", "body")               \
    X(CAL_FIELD_LOCATION, 3003, "", "location")       \
    X(CAL_FIELD_URL, 3004, "", "web address")         \
    X(CAL_FIELD_PHONENO, 3012, "", "phone number")
ORVALE_VALUES(CalendarFieldType, kCalendarFieldTypes, ORVALE_CALENDAR_FIELDS);

/// What a person calls a type of calendar field: its caption, or "text of type N".
std::string CalendarFieldCaption(std::int32_t type);

#define ORVALE_CALENDAR_ITEM_TYPES(X)   \
    X(PHONE_EVENT_TYPE, 0, "", "event") \
    X(PHONE_TODO_TYPE, 1, "", "todo")
ORVALE_VALUES(CalendarItemType, kCalendarItemTypes, ORVALE_CALENDAR_ITEM_TYPES);

#define ORVALE_CALENDAR_CATEGORIES(X)             \
    X(CATE_MISCELLANEOUS, 0, "", "miscellaneous") \
    X(CATE_APPOINTMENT, 1, "", "appointment")     \
    X(CATE_BUSINESS, 2, "", "business")           \
    X(CATE_EDUCATION, 3, "", "education")         \
    X(CATE_HOLIDAY, 4, "", "holiday")             \
    X(CATE_MEETING, 5, "", "meeting")             \
    X(CATE_PERSONAL, 6, "", "personal")           \
    X(CATE_PHONECALL, 7, "", "phone call")        \
    X(CATE_SICKDAY, 8, "", "sick day")            \
    X(CATE_TRAVEL, 9, "", "travel")               \
    X(CATE_VACATION, 10, "", "vacation")          \
    X(CATE_MEMO, 11, "", "memo")                  \
    X(CATE_ANNIVERSARY, 12, "", "anniversary")    \
    X(CATE_REMINDER, 13, "", "reminder")          \
    X(CATE_BIRTHDAY, 14, "", "birthday")
ORVALE_VALUES(CalendarCategory, kCalendarCategories, ORVALE_CALENDAR_CATEGORIES);

#define ORVALE_RECURRENCES(X)                 \
    X(RECURS_NONE, 0, "", "never")            \
    X(RECURS_DAILY, 1, "", "daily")           \
    X(RECURS_WEEKLY, 2, "", "weekly")         \
    X(RECURS_MONTHLY, 3, "", "monthly")       \
    X(RECURS_YEARLY, 4, "", "yearly")         \
    X(RECURS_MONTHNTH, 5, "", "monthly, nth") \
    X(RECURS_YEARNTH, 6, "", "yearly, nth")
ORVALE_VALUES(CalendarRecurrence, kRecurrences, ORVALE_RECURRENCES);

// Flags of a week's mask.
#define ORVALE_WEEKDAYS(X)               \
    X(CAL_SUNDAY, 1, "", "Sunday")       \
    X(CAL_MONDAY, 2, "", "Monday")       \
    X(CAL_TUESDAY, 4, "", "Tuesday")     \
    X(CAL_WEDNESDAY, 8, "", "Wednesday") \
    X(CAL_THURSDAY, 16, "", "Thursday")  \
    X(CAL_FRIDAY, 32, "", "Friday")      \
    X(CAL_SATURDAY, 64, "", "Saturday")
ORVALE_VALUES(CalendarWeekday, kWeekdays, ORVALE_WEEKDAYS);

#define ORVALE_TASK_PRIORITIES(X)                \
    X(CAL_TASK_PRIORITY_LOW, 0, "", "low")       \
    X(CAL_TASK_PRIORITY_NORMAL, 1, "", "normal") \
    X(CAL_TASK_PRIORITY_HIGH, 2, "", "high")
ORVALE_VALUES(CalendarPriority, kTaskPriorities, ORVALE_TASK_PRIORITIES);

// Flags: what a phone knows of events or todos. The first row's text ends in twelve blanks.
#define ORVALE_CALENDAR_PROPERTIES(X)                                                                        \
    X(CAL_PROP_COMMON, 0x00000000, "only include start time, end time, description            ",             \
      "start, end and description only")                                                                     \
    X(CAL_PROP_HAS_RECUR, 0x00000001, "support recurrence", "recurrence")                                    \
    X(CAL_PROP_RECUR_DAILY_EVERYORWORK, 0x00000002, "allow user to set recuring Everyday or Workday\t",      \
      "daily: every day or workdays")                                                                        \
    X(CAL_PROP_RECUR_DAILY_INTERVAL, 0x00000004, "allow user to set a interval for daily recurrence\t",      \
      "daily: interval")                                                                                     \
    X(CAL_PROP_RECUR_WEEKLY_INTERVAL, 0x00000008, "allow user to set a interval for weekly recurrence",      \
      "weekly: interval")                                                                                    \
    X(CAL_PROP_RECUR_WEEKLY_SETDAY, 0x00000010, "allow user to set which day in a week has recurrence",      \
      "weekly: days of the week")                                                                            \
    X(CAL_PROP_RECUR_MONTHLY_DATEORDAY, 0x00000020, "allow user to set Monthly on Date or Day\t",            \
      "monthly: on a date or a day")                                                                         \
    X(CAL_PROP_RECUR_MONTHLY_INTERVAL, 0x00000040, "allow user to set a interval for monthly recurrence",    \
      "monthly: interval")                                                                                   \
    X(CAL_PROP_RECUR_YEARLY_DATEORDAY, 0x00000080, "allow user to set Yearly on Date or Day\t",              \
      "yearly: on a date or a day")                                                                          \
    X(CAL_PROP_RECUR_REPEAT_TIMES, 0x00000100, "support repeat times setting", "number of repetitions")      \
    X(CAL_PROP_RECUR_REPEAT_ENDTIME, 0x00000200, "end time setting\t", "end of the recurrence")              \
    X(CAL_PROP_HAS_PRIORITY, 0x00000400, "support Priority setting\t", "priority")                           \
    X(CAL_PROP_HAS_REMINDERSET, 0x00000800, "alarm time setting", "alarm time")                              \
    X(CAL_PROP_HAS_RINGSET, 0x00001000, "allow user to select a ring tone\t", "ring tone")                   \
    X(CAL_PROP_HAS_LOCATION, 0x00002000, "has Location data\t", "location")                                  \
    X(CAL_PROP_HAS_BODY, 0x00004000, "has body data", "body")                                                \
    X(CAL_PROP_HAS_URL, 0x00008000, "has URL data", "web address")                                           \
    X(CAL_PROP_HAS_PHONENO, 0x00010000, "has Phone No data\t", "phone number")                               \
    X(CAL_PROP_HAS_SECRET, 0x00020000, "has Secret property", "secret")                                      \
    X(CAL_PROP_HAS_COMPLETED, 0x00040000, "has Complete property", "completed")                              \
    X(CAL_PROP_HAS_ALARMSET, 0x00080000, "allow user to set or remove alarm\t", "alarm on or off")           \
    X(CAL_PROP_HAS_VIBRATIONSET, 0x00100000, "allow user to set or remove vibration", "vibration on or off") \
    X(CAL_PROP_NO_ENDTIME, 0x00200000, "the calendar item doesn't have end time\t", "no end")                \
    X(CAL_PROP_SAMEDATE, 0x00400000, "the start date and end date of event or todo must be equal",           \
      "start and end on one day")                                                                            \
    X(CAL_PROP_NO_STARTTIME, 0x00800000, "the calendar item doesn't have start time\t", "no start")
ORVALE_VALUES(CalendarProperty, kCalendarProperties, ORVALE_CALENDAR_PROPERTIES);

// ---- SMS

#define ORVALE_SMS_BOX_TYPES(X)                          \
    X(SMS_BOX_NONE, 0, "None", "no box")                 \
    X(SMS_BOX_INBOX, 1, "Inbox", "inbox")                \
    X(SMS_BOX_OUTBOX, 2, "Outbox", "outbox")             \
    X(SMS_BOX_DRAFT, 3, "Draft", "draft")                \
    X(SMS_BOX_SENT, 4, "Sent", "sent")                   \
    X(SMS_BOX_PRESET, 5, "Preset", "preset")             \
    X(SMS_BOX_FAVOURITE, 6, "Favourite", "favourite")    \
    X(SMS_BOX_MY_FOLDER, 7, "My folder", "my folder")    \
    X(SMS_BOX_QUICK_TEXT, 8, "Quick text", "quick text") \
    X(SMS_BOX_DELETED, 9, "Deleted", "deleted")
ORVALE_VALUES(SmsBoxType, kSmsBoxTypes, ORVALE_SMS_BOX_TYPES);

#define ORVALE_SMS_STORAGES(X)                                     \
    X(SMS_STORAGE_NONE, 0, "None", "no storage")                   \
    X(SMS_STORAGE_PHONE_MEMORY, 1, "Phone Memory", "phone memory") \
    X(SMS_STORAGE_SIM_CARD, 2, "SIM Card", "SIM card")             \
    X(SMS_STORAGE_PUSH_TO_TALK, 3, "Push-to-talk", "push-to-talk") \
    X(SMS_STORAGE_UIM_CARD, 4, "UIM Card", "UIM card")             \
    X(SMS_STORAGE_USIM_CARD, 5, "USIM Card", "USIM card")
ORVALE_VALUES(SmsStorage, kSmsStorages, ORVALE_SMS_STORAGES);

// Flags of a box. 0x80 isn't assigned, and the last row's text is the first row's in the documents.
#define ORVALE_SMS_BOX_FLAGS(X)                                                            \
    X(SMBX_HAS_NEW, 0x00000001, "Support Adding SMS", "adding a message")                  \
    X(SMBX_HAS_EDIT, 0x00000002, "Support Editing SMS", "editing a message")               \
    X(SMBX_HAS_DELETE, 0x00000004, "Support Deleting SMS", "deleting a message")           \
    X(SMBX_HAS_FORWARD, 0x00000008, "Support Forwarding SMS", "forwarding a message")      \
    X(SMBX_HAS_REPLY, 0x00000010, "Support Replying SMS", "replying to a message")         \
    X(SMBX_HAS_SEND, 0x00000020, "Support Sending SMS", "sending a message")               \
    X(SMBX_HAS_LOCATION, 0x00000040, "Support Storage Selecting", "selecting the storage") \
    X(SMBX_TYPE_PRESET, 0x00000100, "Support Adding SMS", "box of preset messages")
ORVALE_VALUES(SmsBoxFlag, kSmsBoxFlags, ORVALE_SMS_BOX_FLAGS);

// Flags of a phone.
#define ORVALE_SMS_PHONE_FLAGS(X)                                            \
    X(SMMD_HAS_SEND, 0x00000001, "support sending SMS", "sending a message") \
    X(SMMD_HAS_CANCEL, 0x00000002, "support cancel operation", "cancelling")
ORVALE_VALUES(SmsPhoneFlag, kSmsPhoneFlags, ORVALE_SMS_PHONE_FLAGS);

// ---- email

// Flags of a message's status.
#define ORVALE_EMAIL_STATUS(X)                                  \
    X(EMAIL_READ, 0x0000001, "", "read")                        \
    X(EMAIL_UNREAD, 0x0000002, "", "unread")                    \
    X(EMAIL_AT_SERVER, 0x0000004, "", "at the server")          \
    X(EMAIL_UNDELETED, 0x0010000, "", "not deleted")            \
    X(EMAIL_UNCHANGEDSTATUS, 0x0020000, "", "status unchanged") \
    X(EMAIL_UNEDITABLE, 0x0040000, "", "not to be edited")
ORVALE_VALUES(EmailStatus, kEmailStatus, ORVALE_EMAIL_STATUS);

#define ORVALE_EMAIL_IMPORTANCES(X)             \
    X(EMAIL_IMPORTANCE_NONE, 0, "", "none")     \
    X(EMAIL_IMPORTANCE_LOW, 1, "", "low")       \
    X(EMAIL_IMPORTANCE_NORMAL, 2, "", "normal") \
    X(EMAIL_IMPORTANCE_HIGH, 3, "", "high")
ORVALE_VALUES(EmailImportance, kEmailImportances, ORVALE_EMAIL_IMPORTANCES);

#define ORVALE_EMAIL_SYMBOLS(X)               \
    X(EMAIL_SYMBOL_NONE, 0, "", "none")       \
    X(EMAIL_SYMBOL_GENERAL, 1, "", "general") \
    X(EMAIL_SYMBOL_RED, 2, "", "red")         \
    X(EMAIL_SYMBOL_BLUE, 3, "", "blue")       \
    X(EMAIL_SYMBOL_YELLOW, 4, "", "yellow")   \
    X(EMAIL_SYMBOL_GREEN, 5, "", "green")     \
    X(EMAIL_SYMBOL_ORANGE, 6, "", "orange")   \
    X(EMAIL_SYMBOL_PURPLE, 7, "", "purple")
ORVALE_VALUES(EmailSymbol, kEmailSymbols, ORVALE_EMAIL_SYMBOLS);

// The names lack an I, and are known so.
#define ORVALE_EMAIL_SENSITIVITIES(X)               \
    X(EMAIL_SENSITIVTY_NONE, 0, "", "none")         \
    X(EMAIL_SENSITIVTY_NORMAL, 1, "", "normal")     \
    X(EMAIL_SENSITIVTY_PERSONAL, 2, "", "personal") \
    X(EMAIL_SENSITIVTY_PRIVATE, 3, "", "private")   \
    X(EMAIL_SENSITIVTY_CONFIDENTIAL, 4, "", "confidential")
ORVALE_VALUES(EmailSensitivity, kEmailSensitivities, ORVALE_EMAIL_SENSITIVITIES);

// Types of a box. The series goes on, and the third custom box has 53.
#define ORVALE_EMAIL_BOX_TYPES(X)               \
    X(EMAILBOX_INBOX, 1, "", "inbox")           \
    X(EMAILBOX_OUTBOX, 2, "", "outbox")         \
    X(EMAILBOX_SENT, 3, "", "sent")             \
    X(EMAILBOX_DRAFT, 4, "", "draft")           \
    X(EMAILBOX_TRASH, 5, "", "trash")           \
    X(EMAILBOX_PERSONAL, 6, "", "personal")     \
    X(EMAILBOX_DELETED, 7, "", "deleted")       \
    X(EMAILBOX_CUSTOM1, 50, "", "custom box 1") \
    X(EMAILBOX_CUSTOM2, 51, "", "custom box 2") \
    X(EMAILBOX_CUSTOM3, 53, "", "custom box 3")
ORVALE_VALUES(EmailBoxType, kEmailBoxTypes, ORVALE_EMAIL_BOX_TYPES);

// Ids of a subfolder; each opens a series.
#define ORVALE_EMAIL_FOLDERS(X)                        \
    X(EMAILFOLDER_CUSTOM1, 100, "", "custom folder 1") \
    X(EMAILFOLDER_CUSTOM2, 200, "", "custom folder 2") \
    X(EMAILFOLDER_CUSTOM3, 300, "", "custom folder 3")
ORVALE_VALUES(EmailFolderId, kEmailFolders, ORVALE_EMAIL_FOLDERS);

// Ids of an account; the series goes on.
#define ORVALE_EMAIL_ACCOUNTS(X)                       \
    X(EMAILACCOUNT_DEFAULT, 1, "", "default account")  \
    X(EMAILACCOUNT_CUSTOM1, 2, "", "custom account 1") \
    X(EMAILACCOUNT_CUSTOM2, 3, "", "custom account 2")
ORVALE_VALUES(EmailAccountId, kEmailAccounts, ORVALE_EMAIL_ACCOUNTS);

// Ids of a device, where a message lies.
#define ORVALE_EMAIL_DEVICES(X)                         \
    X(DEVL_PHONEMEMORY, 0x00000001, "", "phone memory") \
    X(DEVL_SIMCARD, 0x00000002, "", "SIM card")         \
    X(DEVL_PUSHTOTALK, 0x00000003, "", "push-to-talk")  \
    X(DEVL_UIMCARD, 0x00000004, "", "UIM card")         \
    X(DEVL_USIMCARD, 0x00000005, "", "USIM card")
ORVALE_VALUES(EmailDeviceId, kEmailDevices, ORVALE_EMAIL_DEVICES);

// Flags of a box.
#define ORVALE_EMAIL_BOX_FLAGS(X)                                 \
    X(EMBX_HAS_NEW, 0x00000001, "", "adding a message")           \
    X(EMBX_HAS_EDIT, 0x00000002, "", "editing a message")         \
    X(EMBX_HAS_DELETE, 0x00000004, "", "deleting a message")      \
    X(EMBX_HAS_FORWARD, 0x00000008, "", "forwarding a message")   \
    X(EMBX_HAS_REPLY, 0x00000010, "", "replying to a message")    \
    X(EMBX_HAS_SEND, 0x00000020, "", "sending a message")         \
    X(EMBX_HAS_LOCATION, 0x00000040, "", "selecting the storage") \
    X(EMBX_HAS_RESTORE, 0x00000080, "", "restoring a message")
ORVALE_VALUES(EmailBoxFlag, kEmailBoxFlags, ORVALE_EMAIL_BOX_FLAGS);

// Flags of a phone.
#define ORVALE_EMAIL_PHONE_FLAGS(X)                                             \
    X(EMMD_HAS_SEND, 0x00000001, "support send operation", "sending a message") \
    X(EMMD_HAS_CANCEL, 0x00000002, "support cancel operation", "cancelling")
ORVALE_VALUES(EmailPhoneFlag, kEmailPhoneFlags, ORVALE_EMAIL_PHONE_FLAGS);

// ---- phonebook

// Flags of a phone.
#define ORVALE_PHONEBOOK_FLAGS(X)                                              \
    X(PBMD_HAS_USIMCARD, 0x00000001, "support USIM Card", "USIM card")         \
    X(PBMD_HAS_SIMCARD, 0x00000002, "support SIM Card", "SIM card")            \
    X(PBMD_HAS_PUSHTOTALK, 0x00000004, "support Push-To-Talk", "push-to-talk") \
    X(PBMD_HAS_UIMCARD, 0x00000008, "support UIM Card", "UIM card")            \
    X(PBMD_HAS_SECRET, 0x00010000, "support secret record", "secret records")  \
    X(PBMD_HAS_SPEEDDIAL, 0x00020000, "support SpeedDial", "speed dial")       \
    X(PBMD_HAS_CANCEL, 0x00040000, "support cancel operation", "cancelling")
ORVALE_VALUES(PhonebookFlag, kPhonebookFlags, ORVALE_PHONEBOOK_FLAGS);

#define ORVALE_SPEED_DIALS(X)                                                                          \
    X(PBSD_SPEEDDIAL_NORMAL, 0x00000000, "All of phone numbers support speeddial", "any phone number") \
    X(PBSD_SPEEDDIAL_LOCATION, 0x00000001, "The speeddial is same as the memory location", "the memory location")
ORVALE_VALUES(SpeedDialFlag, kSpeedDials, ORVALE_SPEED_DIALS);

// Flags of a device.
#define ORVALE_PHONEBOOK_DEVICE_FLAGS(X)                                           \
    X(PBDV_HAS_GROUP, 0x4, "support Group access", "groups")                       \
    X(PBDV_HAS_SPEEDDIAL, 0x10, "support SpeedDial", "speed dial")                 \
    X(PBDV_HAS_MEMORYLOCATION, 0x40, "support Memory Location", "memory location") \
    X(PBDV_HAS_PORTRAIT, 0x80, "support Portrait", "portrait")                     \
    X(PBDV_HAS_RINGTONE, 0x100, "support Ringtone", "ring tone")
ORVALE_VALUES(PhonebookDeviceFlag, kPhonebookDeviceFlags, ORVALE_PHONEBOOK_DEVICE_FLAGS);

#define ORVALE_MEMORY_LOCATIONS(X) X(PBML_LOCATION_NORMAL, 0x00000000, "Memory can be located normally", "normal")
ORVALE_VALUES(MemoryLocationFlag, kMemoryLocations, ORVALE_MEMORY_LOCATIONS);

#undef ORVALE_VALUES
#undef ORVALE_ROW
#undef ORVALE_ENUMERATOR
