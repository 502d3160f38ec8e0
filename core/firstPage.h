/// The host's first-page service, which the creation flows ask.
#pragma once

class FirstPagePlugin;

namespace newpro {

/// @return the service "firstPagePlugin"; null when the host has none.
FirstPagePlugin* firstPageService();

/// @return whether the service exists and is ready to open a new project.
bool hostIsReady();

}  // namespace newpro
