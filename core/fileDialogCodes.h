/// The numbers of the host's file dialog.
#pragma once

namespace newpro {

/// Where the dialog lets the user look, as getOpenFileName takes it.
enum BrowseMode {
    LocalFolders = 0,
    ContractingCloudDisks = 1,  ///< Cloud disks as well, for general contracting.
    CloudDisks = 2,             ///< Cloud disks as well, for everything else.
};

/// Where the last choice was made, as iClickedBtn tells it. Any other number is a local place.
enum ChosenPlace {
    NoPlace = 0,
    PersonalDiskPlace = 3,
    EnterpriseDiskPlace = 4,
};

}  // namespace newpro
