// Scripts: the words, and the whole program behind them on a window without a platform.
#include "app/cli.h"
#include "app/script_player.h"
#include "fuzz/fuzz.h"
#include "model/failure.h"
#include "model/options.h"
#include "model/store.h"

#include <algorithm>

namespace havuz::fuzz {

// No word leads out of the sandbox, and no input is longer than a person would type.
void ScriptText(const std::uint8_t *data, std::size_t size) {
    std::string text(reinterpret_cast<const char *>(data), std::min<std::size_t>(size, 4000));
    std::replace(text.begin(), text.end(), '/', '_');
    std::replace(text.begin(), text.end(), '\\', '_');
    std::replace(text.begin(), text.end(), '~', '_');
    ResetStore();
    ResetOptions();
    try {
        const std::vector<ScriptLine> lines = SplitScript("s", text);
        HeadlessStage stage(Sandbox() + "/program/havuz");
        stage.main.Start("");
        CalismaDizini = Sandbox();
        PlayScript(stage, "s", lines);
    } catch (const RuntimeFailure &) {
    } catch (const UsageError &) {
    } catch (const ScriptFailure &) {
    } catch (const ProgramEnd &) {}
}

} // namespace havuz::fuzz
