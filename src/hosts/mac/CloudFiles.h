#pragma once

namespace pryvane {

/// From here on nothing that this process reads is fetched from the cloud: a file or folder whose
/// content is not on the disk fails with EDEADLK instead. False where the system does not know it.
bool keepCloudFilesAway();

} // namespace pryvane
