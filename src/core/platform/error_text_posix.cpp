#include <cerrno>

#include "core/platform/error_text.h"

namespace tz::platform {

std::string errorText(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return "文件或文件夹不存在";
    case EACCES:
    case EPERM:
      return "没有权限";
    case ENOSPC:
    case EDQUOT:
      return "磁盘空间不足";
    case EROFS:
      return "磁盘只读";
    case EISDIR:
      return "这是一个文件夹";
    case ENAMETOOLONG:
      return "文件名太长";
    case ELOOP:
      return "链接指向自身";
    case EIO:
      return "读写磁盘时出错";
    case EFBIG:
      return "文件超过了允许的大小";
    case EBADF:
      return "没有打开，或不能写入";
    case EPIPE:
      return "读取的一方已经离开";
    case EBUSY:
    case ETXTBSY:
      return "正被其他程序占用";
    case EMFILE:
    case ENFILE:
      return "打开的文件太多";
    case ENOMEM:
      return "内存不足";
    case ENOEXEC:
      return "不是可以运行的程序";
    default:
      return "系统错误（编号 " + std::to_string(error) + "）";
  }
}

}  // namespace tz::platform
