#include <lwconfig/options/ide_options.h>
#include <lwconfig/platform/host.h>

namespace lwconfig {

CommentEditorViewEnum UsualCommentEditorView() {
  constexpr int kFullViewWidth = 1025;
  const int width = platform::Host<platform::Environment>().DisplayWidth();
  return width >= kFullViewWidth ? CommentEditViewFull : CommentEditViewCombo;
}

}  // namespace lwconfig
