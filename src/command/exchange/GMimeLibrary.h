#pragma once

#include <gmime/gmime.h>

#include <memory>

#include "platform/SharedLibrary.h"

namespace orvale {

// Each function of GMime, and of the GLib below it, that is used here.
#define ORVALE_GMIME_FUNCTIONS(X)                 \
    X(g_date_time_to_unix)                        \
    X(g_free)                                     \
    X(g_log_set_default_handler)                  \
    X(g_mime_content_disposition_get_disposition) \
    X(g_mime_content_type_get_mime_type)          \
    X(g_mime_content_type_is_type)                \
    X(g_mime_data_wrapper_write_to_stream)        \
    X(g_mime_header_get_name)                     \
    X(g_mime_header_get_value)                    \
    X(g_mime_header_list_get_count)               \
    X(g_mime_header_list_get_header_at)           \
    X(g_mime_init)                                \
    X(g_mime_message_get_date)                    \
    X(g_mime_message_get_mime_part)               \
    X(g_mime_message_new)                         \
    X(g_mime_message_part_get_type)               \
    X(g_mime_message_set_mime_part)               \
    X(g_mime_multipart_get_count)                 \
    X(g_mime_multipart_get_part)                  \
    X(g_mime_multipart_get_type)                  \
    X(g_mime_object_get_content_disposition)      \
    X(g_mime_object_get_content_type)             \
    X(g_mime_object_get_header)                   \
    X(g_mime_object_get_header_list)              \
    X(g_mime_object_set_header)                   \
    X(g_mime_object_to_string)                    \
    X(g_mime_parser_construct_message)            \
    X(g_mime_parser_new_with_stream)              \
    X(g_mime_part_get_content)                    \
    X(g_mime_part_get_filename)                   \
    X(g_mime_part_get_type)                       \
    X(g_mime_part_set_content_encoding)           \
    X(g_mime_stream_mem_get_byte_array)           \
    X(g_mime_stream_mem_new)                      \
    X(g_mime_stream_mem_new_with_buffer)          \
    X(g_mime_text_part_get_charset)               \
    X(g_mime_text_part_get_text)                  \
    X(g_mime_text_part_get_type)                  \
    X(g_mime_text_part_new)                       \
    X(g_mime_text_part_set_charset)               \
    X(g_mime_text_part_set_text)                  \
    X(g_object_unref)                             \
    X(g_type_check_instance_is_a)                 \
    X(internet_address_list_parse)                \
    X(internet_address_list_to_string)

/// GMime, loaded and made ready at the first use.
struct GMimeLibrary {
    explicit GMimeLibrary(const SharedLibrary& loaded) : library(loaded) {}

    const SharedLibrary& library;

#define ORVALE_MEMBER(name) decltype(&::name) name = nullptr;
    ORVALE_GMIME_FUNCTIONS(ORVALE_MEMBER)
#undef ORVALE_MEMBER
};

/// The library. Ends the work with an error line where it isn't installed.
const GMimeLibrary& GMime();

struct GMimeDeleter {
    void operator()(void* object) const { GMime().g_object_unref(object); }
    void operator()(char* text) const { GMime().g_free(text); }
};
template <class Object>
using GMimeOwner = std::unique_ptr<Object, GMimeDeleter>;

}  // namespace orvale
