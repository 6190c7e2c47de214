"""The configuration of the documentation generator Lexiwend.

    import lwconfig
    root = lwconfig.Root()
    for template in root.PageTemplates:
        print(template.Name, len(template.PageLayouts))
"""

from . import _failures, _lwconfig
from ._failures import *  # noqa: F403
from ._lwconfig import *  # noqa: F403

__all__ = [*_failures.__all__, *_lwconfig.__all__]
__version__ = _lwconfig.__version__
