"""The person and Thunderbird in a Wayland session (a Compositor), where windows are known to the compositor alone."""

from .base import ServiceError
from .compositor import inside_of, is_x11
from .operator import Operator
from .thunderbird import Thunderbird


class WaylandOperator(Operator):
    """Points and types through the compositor, as real devices do."""

    def __init__(self, sandbox, compositor):
        super().__init__(sandbox)
        self.compositor = compositor

    def click_at_once(self, control):
        """A Wayland window does not know where it is; the compositor knows. One under Xwayland knows it."""
        view = self._view_of(control)
        if is_x11(view):
            box, left, top = self.place(control), 0, 0
        else:
            box, (left, top) = control.queryComponent().getExtents(self.atspi.WINDOW_COORDS), inside_of(view)
        if box.width <= 0 or box.height <= 0:
            raise ServiceError(f"“{control.name}” has no place in its window")
        self.compositor.input.click(left + box.x + box.width / 2, top + box.y + box.height / 2)

    def _view_of(self, control):
        process = control.getApplication().get_process_id()
        return next(view for view in self.compositor.views() if view["pid"] == process)

    def click_into(self, window):
        """Where the text is, in a compose window."""
        window = self.compositor.turn_to(window)
        left, top = inside_of(window)
        box = window["window_rect"]
        self.compositor.input.click(left + box["width"] / 2, top + box["height"] * 0.6)

    def type_into(self, window, text):
        self.compositor.turn_to(window)
        self.compositor.input.type(text)


class WaylandThunderbird(Thunderbird):
    """Its windows are Wayland's own; a window is what the compositor tells of it."""

    PLATFORM = {"MOZ_ENABLE_WAYLAND": "1"}

    def __init__(self, sandbox, compositor, mail=None, **options):
        super().__init__(sandbox, mail, **options)
        self.compositor = compositor

    def windows(self, title=""):
        return self.compositor.views("thunderbird", title)

    def title_of(self, window):
        return window["name"]

    def raise_window(self, title):
        view = self.wait_window(title)
        self.compositor.turn_to(view)
        return view
