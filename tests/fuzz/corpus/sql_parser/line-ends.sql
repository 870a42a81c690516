SELECT	*
FROM tblFrameInfo
WHERE fldFrameNum=+.5