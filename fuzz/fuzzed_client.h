// A client in a recorded world: whoever derives from it feeds it with an input, a user closes what is open then, and at
// the end the client comes to rest.
#pragma once

#include "fuzz_target.h"
#include "support/recorded_world.h"

namespace ombrin::fuzz {

class FuzzedClient : protected Waiter {
protected:
    /// `patience` is the user's, in presses.
    FuzzedClient(std::string_view input, int patience) : input(input), patience(patience) {}
    ~FuzzedClient() = default;

    /// Runs what was posted, then everything that comes of it and of the input.
    void PlayOut(GameLobby& played) {
        client = &played;
        bool over = false;
        world.loop.Post([&] { over = true; });
        RunUntil(over);
        while (!Stack().Ending() && Step()) {
        }
        Stack().RequestEnd();
        Require(Stack().Visible().empty() && Stack().Depth() == 0, "nothing is open at the end");
        try {
            played.UserControl_Terminate();
        } catch (const ProgramEnding&) {
        }
    }

    /// The next step of the input; false where none can be taken now.
    virtual bool Feed() = 0;
    virtual void Press(Form& top) = 0;

    /// As the loop is held at this depth, nothing is read.
    bool IsHeld() const { return Stack().Visible().size() >= ModalStack::kOpenLimit; }

    test::RecordedWorld world;
    std::string_view input;

private:
    ModalStack& Stack() const { return client->Stack(); }

    void RunUntil(const bool& ended) override {
        while (!ended && !Stack().Ending())
            if (!Step()) Stack().RequestEnd();
    }
    void Block(Milliseconds) override {}
    void Breathe() override {}

    /// An event, else a step of the input, else a press of the user; false when all are used up.
    bool Step() {
        try {
            if (world.loop.DispatchOne() || Feed()) return true;
            if (patience == 0 || Stack().Top() == nullptr) return false;
            --patience;
            Press(*Stack().Top());
        } catch (const ProgramEnding&) {
        }
        return true;
    }

    GameLobby* client = nullptr; ///< from PlayOut on
    int patience;
};

} // namespace ombrin::fuzz
