/// Names that hosts share with the library and with each other.
///
///     center.post({std::string(notification_names::cloudResourceUploaded), {{"path", uploaded}}});
///     AnyValue permitted = defaults.value(user_default_keys::kUseGPUAcceleration);
#pragma once

#include <quillonic/requirements.hpp>

#include <string_view>

namespace quillonic {

/// Notifications that a host can observe at its default notification centre.
namespace notification_names {

/// An upload to cloud storage has ended.
inline constexpr std::string_view cloudResourceUploaded = "cloudResourceUploaded";
/// A drive's read or write speed was measured again.
inline constexpr std::string_view driveSpeedUpdate = "driveSpeedUpdate";
/// A drive was dismounted or pulled.
inline constexpr std::string_view driveDismount = "driveDismount";
/// The user interface's view of the main activity is out of date.
inline constexpr std::string_view kUINeedsUpdateForMainActivity = "kUINeedsUpdateForMainActivity";
/// The main activity has progressed; sent to all its observers.
inline constexpr std::string_view kMainActivityUpdateBroadcast = "kMainActivityUpdateBroadcast";
/// An observer asks for the state of all active jobs.
inline constexpr std::string_view kNeedsUpdateForAllActiveJobs = "kNeedsUpdateForAllActiveJobs";
/// The state of all active jobs, in answer to that request.
inline constexpr std::string_view kAllActiveJobsUpdate = "kAllActiveJobsUpdate";
/// A job has become active.
inline constexpr std::string_view kNewActiveJob = "kNewActiveJob";
/// A job is no longer active.
inline constexpr std::string_view kRemovedActiveJob = "kRemovedActiveJob";

}  // namespace notification_names

/// Keys of the settings that host applications keep in their user defaults.
namespace user_default_keys {

/// Whether a transcode may use graphics acceleration; read before it starts.
inline constexpr std::string_view kUseGPUAcceleration = "kUseGPUAcceleration";
/// How many transcodes may run at once; read when they are scheduled.
inline constexpr std::string_view kExplicitNumberOfConcurrentTranscodes =
    "kExplicitNumberOfConcurrentTranscodes";
/// Whether a failed transcode is attempted again without asking; read after the failure.
inline constexpr std::string_view kPermitAutoReattemptOfFailedTranscodes =
    "kPermitAutoReattemptOfFailedTranscodes";
/// How often a failed transcode is attempted again at most; read after the failure.
inline constexpr std::string_view kNumberOfReattemptsPerFailedTranscode =
    "kNumberOfReattemptsPerFailedTranscode";

}  // namespace user_default_keys

}  // namespace quillonic
