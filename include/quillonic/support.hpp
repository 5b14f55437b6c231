/// Small services for the other subsystems: enumerations with texts, coding, text dictionaries, ordered trees,
/// values of any type, switches that threads share, and names shared with hosts.
#pragma once

#include <quillonic/support/any_value.hpp>
#include <quillonic/support/atomic_switch.hpp>
#include <quillonic/support/character_set.hpp>
#include <quillonic/support/coding.hpp>
#include <quillonic/support/date.hpp>
#include <quillonic/support/dispatch_qos.hpp>
#include <quillonic/support/enumeration.hpp>
#include <quillonic/support/function_ref.hpp>
#include <quillonic/support/host_keys.hpp>
#include <quillonic/support/option_set.hpp>
#include <quillonic/support/ordered_tree.hpp>
#include <quillonic/support/parse_error.hpp>
#include <quillonic/support/path_coding.hpp>
#include <quillonic/support/result.hpp>
#include <quillonic/support/text_backed.hpp>
#include <quillonic/support/text_dictionary.hpp>
