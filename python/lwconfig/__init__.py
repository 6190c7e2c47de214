"""The configuration of the documentation generator Lexiwend.

    import lwconfig
    root = lwconfig.Root()
    for template in root.PageTemplates:
        print(template.Name, len(template.PageLayouts))
"""

from . import _lwconfig
from ._failures import Error
from ._lwconfig import *  # noqa: F403

__all__ = ["Error", *_lwconfig.__all__]
__version__ = _lwconfig.__version__
