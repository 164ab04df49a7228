// The skins of this machine: those that the programs came with, and the client's own. One that is used has to lie below
// the client's folder, so those that came along are copied there.
#pragma once

#include "hosts/skin/skin.h"

#include <map>

namespace ombrin::skin {

class Shelf {
public:
    /// `share` and `app` have the folder "skins"; it need not be there.
    Shelf(const std::string& share, const std::string& app) : shared(share + "/skins"), own(app + "/skins") {}

    /// The folders of all skins by their names. An own one hides the one of that name that came along, a copy does not.
    std::map<std::string, std::string> Folders() const;
    /// Raises std::runtime_error for a name that is none, and what ReadSkin raises.
    Skin Read(const std::string& name) const;

    /// Raises std::runtime_error for a file that is missing, a link, too large or no picture.
    static void Check(const Skin& skin);
    /// Has the skin below the client's folder, whole: others see the old copy or the new one. Raises as Check does, and
    /// then nothing has changed.
    void Provide(const Skin& skin) const;
    /// Takes a copy away, unless somebody has changed something in it: then it is his own.
    void Drop(const std::string& name) const;

    const std::string& Shared() const { return shared; }
    const std::string& Own() const { return own; }

private:
    std::string OwnFolder(const std::string& name) const { return own + "/" + name; }
    void Copy(const Skin& skin) const;

    std::string shared, own; ///< as the system takes them
};

} // namespace ombrin::skin
