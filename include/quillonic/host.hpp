/// Services for hosts: notifications, input and output activity, drives that come and go, the machine.
#pragma once

#include <quillonic/host/activity_tracker.hpp>
#include <quillonic/host/drive_meter.hpp>
#include <quillonic/host/drive_watcher.hpp>
#include <quillonic/host/machine.hpp>
#include <quillonic/host/notification_center.hpp>
#include <quillonic/host/process_meter.hpp>
