/// Names that hosts share with the library and with each other.
///
///     center.post(notification_names::driveDismount);
///     bool permitted = defaults.boolean(user_default_keys::kUseGPUAcceleration);
#pragma once

#include <quillonic/requirements.hpp>

#include <string_view>

namespace quillonic {

/// The notifications that a host can observe at its default notification centre.
namespace notification_names {

/// An upload to cloud storage has ended.
inline constexpr std::string_view cloudResourceUploaded = "cloudResourceUploaded";
/// A drive's reading or writing speed was measured anew.
inline constexpr std::string_view driveSpeedUpdate = "driveSpeedUpdate";
/// A drive is being dismounted.
inline constexpr std::string_view driveDismount = "driveDismount";
/// What the user interface shows of the main activity has become stale.
inline constexpr std::string_view kUINeedsUpdateForMainActivity = "kUINeedsUpdateForMainActivity";
/// The main activity has progressed; sent to every observer of it.
inline constexpr std::string_view kMainActivityUpdateBroadcast = "kMainActivityUpdateBroadcast";
/// An observer wants the state of all active jobs to be sent.
inline constexpr std::string_view kNeedsUpdateForAllActiveJobs = "kNeedsUpdateForAllActiveJobs";
/// The state of all active jobs, as it was asked for.
inline constexpr std::string_view kAllActiveJobsUpdate = "kAllActiveJobsUpdate";
/// A job has become active.
inline constexpr std::string_view kNewActiveJob = "kNewActiveJob";
/// A job is no longer active.
inline constexpr std::string_view kRemovedActiveJob = "kRemovedActiveJob";

}  // namespace notification_names

/// The keys of the settings that host applications keep in their user defaults. The library only names them.
namespace user_default_keys {

/// Read before a transcode starts: whether it may use graphics acceleration.
inline constexpr std::string_view kUseGPUAcceleration = "kUseGPUAcceleration";
/// Read when transcodes are scheduled: how many may run at once.
inline constexpr std::string_view kExplicitNumberOfConcurrentTranscodes =
    "kExplicitNumberOfConcurrentTranscodes";
/// Read when a transcode has failed: whether it is attempted again without asking.
inline constexpr std::string_view kPermitAutoReattemptOfFailedTranscodes =
    "kPermitAutoReattemptOfFailedTranscodes";
/// Read when a transcode has failed: how many times it is attempted again at most.
inline constexpr std::string_view kNumberOfReattemptsPerFailedTranscode =
    "kNumberOfReattemptsPerFailedTranscode";

}  // namespace user_default_keys

}  // namespace quillonic
