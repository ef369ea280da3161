// The demo's world: a fresh folder under the temporary folder with a copy of the example
// project amp2, and a profile and settings of its own in which the example's simulators
// are installed and the netlist is kept up to date. The environment points at them, so
// that the demo touches none of the person's own files.
#pragma once

#include <string>

namespace velorand::program {

class DemoWorld {
  public:
    DemoWorld() = default;
    // Removes the folder again, unless it is to be kept.
    ~DemoWorld();
    DemoWorld(const DemoWorld&) = delete;
    DemoWorld& operator=(const DemoWorld&) = delete;

    // Makes the folder and copies the example into it; false with the reason in `error`.
    bool Prepare(std::string& error);
    void Keep() { keep_ = true; }

    // The demo's folder, holding amp2/ and config/.
    const std::string& Folder() const { return folder_; }
    // The bundled script of the example's life.
    std::string Script() const;

  private:
    std::string folder_;
    bool keep_ = false;
};

}  // namespace velorand::program
