// Shows files that were saved where they are: in the desktop's file manager.

#pragma once

#include <QObject>
#include <functional>
#include <span>
#include <string>

namespace orvik {

// ShowInFolder: has the file manager show the files, given as bytes, the first ones of many, all of
// one folder. Where none listens the desktop opens the folder; failed runs where it cannot. Returns
// at once. Nothing runs when the context is gone.
void ShowInFolder(std::span<const std::string> files,
                  QObject* context,
                  const std::function<void()>& failed);

}  // namespace orvik
