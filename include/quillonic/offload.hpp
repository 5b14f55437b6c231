/// Everything about offloads: copies, links, names, checksums, plans and reports.
#pragma once

#include <quillonic/offload/checksum.hpp>
#include <quillonic/offload/copy_match.hpp>
#include <quillonic/offload/file_copy.hpp>
#include <quillonic/offload/free_names.hpp>
#include <quillonic/offload/hash_list.hpp>
#include <quillonic/offload/link_replication.hpp>
#include <quillonic/offload/offload_error.hpp>
#include <quillonic/offload/offload_plan.hpp>
#include <quillonic/offload/offload_run.hpp>
#include <quillonic/offload/written_names.hpp>
