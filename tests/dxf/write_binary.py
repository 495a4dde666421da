"""Writes a drawing once in ASCII and once in binary form with ezdxf: write_binary.py FROM ASCII BINARY"""
import sys

import ezdxf

document = ezdxf.readfile(sys.argv[1])
document.saveas(sys.argv[2])
document.saveas(sys.argv[3], fmt="bin")
